# Runs one scenario natively and through the emulator and compares the two dumps byte for byte.
cmake_policy(VERSION 3.25)

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
if(FILE STREQUAL "ATLAS")
  set(data ${ATLAS})
elseif(FILE STREQUAL "fitted.nc")
  # A climatology that the control does not draw, in the copy that the native tool makes of it.
  set(data ${WORK}/fitted.nc)
  execute_process(COMMAND ${FIT} fit ${CLIMATOLOGY} ${data} OUTPUT_QUIET
    COMMAND_ERROR_IS_FATAL ANY)
else()
  execute_process(COMMAND ${SAMPLES} ${WORK} COMMAND_ERROR_IS_FATAL ANY)
  set(data ${WORK}/${FILE})
endif()
if(FILE STREQUAL "ocean5.nc")
  execute_process(COMMAND ${NCCOPY} -k cdf5 ${WORK}/ocean.nc ${data} COMMAND_ERROR_IS_FATAL ANY)
  file(READ ${data} kind LIMIT 4 HEX)
  if(NOT kind STREQUAL "43444605")
    message(FATAL_ERROR "${data} is no CDF-5 file")
  endif()
endif()

# The netCDF library of Windows knows a file by its Windows path; drive Z is the root here.
string(REPLACE "/" "\\" windows_data "Z:${data}")
execute_process(COMMAND ${NATIVE} ${WORK}/native.txt ${data} ${SCENARIO}
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${EMULATOR} ${WINDOWS} ${WORK}/windows.txt ${windows_data} ${SCENARIO}
  COMMAND_ERROR_IS_FATAL ANY)
file(SIZE ${WORK}/native.txt size)
if(size LESS 1000)
  message(FATAL_ERROR "the dump of ${SCENARIO} holds no section")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${WORK}/native.txt ${WORK}/windows.txt
  RESULT_VARIABLE differ)
if(differ)
  execute_process(COMMAND diff ${WORK}/native.txt ${WORK}/windows.txt OUTPUT_VARIABLE lines)
  string(SUBSTRING "${lines}" 0 2000 lines)
  message(FATAL_ERROR "the Windows build differs from the native one:\n${lines}")
endif()
