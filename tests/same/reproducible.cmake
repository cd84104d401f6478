# The control's file depends on its sources alone: not on when it was made, nor in which folder.
# CONTROL, TYPELIB: as they were built; WIDL: the command that compiles interface descriptions, IDL,
# PYTHON, WITHOUT_TIME: the script behind it; OBJDUMP; FOLDERS: names that must not be in the file.
cmake_policy(VERSION 3.25)

execute_process(COMMAND ${OBJDUMP} -p ${CONTROL} OUTPUT_VARIABLE headers COMMAND_ERROR_IS_FATAL ANY)
if(NOT headers MATCHES "Time/Date[ \t]+Thu Jan +1 00:00:00 1970")
  message(FATAL_ERROR "the control has the time of its linking")
endif()

foreach(folder IN LISTS FOLDERS)
  string(REGEX REPLACE "([][+.*()^$?|\\\\])" "\\\\\\1" pattern "${folder}")
  file(STRINGS ${CONTROL} found REGEX "${pattern}" LIMIT_COUNT 3)
  if(found)
    message(FATAL_ERROR "the control names a folder of the build:\n${found}")
  endif()
endforeach()

# Compiled once more, later.
file(MAKE_DIRECTORY ${WORK})
execute_process(COMMAND ${WIDL} -t -o ${WORK}/again.tlb ${IDL} COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${TYPELIB} ${WORK}/again.tlb
  RESULT_VARIABLE differ OUTPUT_QUIET ERROR_QUIET)
if(NOT differ)
  message(FATAL_ERROR "the compiler leaves no time to be taken out: is the script still needed?")
endif()
execute_process(COMMAND ${PYTHON} ${WITHOUT_TIME} ${WORK}/again.tlb COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${TYPELIB} ${WORK}/again.tlb
  COMMAND_ERROR_IS_FATAL ANY)
