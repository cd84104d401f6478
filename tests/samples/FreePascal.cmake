# Compiles Pascal for Windows with the distribution's compiler, which has an assembler and a linker
# of its own. The run-time library for Windows is compiled from the compiler's sources; so is, for
# 32-bit programs, a compiler that makes them, because the distribution's one does not.
#   pascal_bits     32 or 64, set by who includes this
#   pascal_compile  the command that compiles a program, after the target's dependencies are made
#   pascal_library  the dependency
find_program(KELVANE_PASCAL ppcx64 REQUIRED)
execute_process(COMMAND ${KELVANE_PASCAL} -iV OUTPUT_VARIABLE pascal_version
  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
find_path(KELVANE_PASCAL_SOURCE_${pascal_version} rtl/win64/system.pp
  PATHS /usr/share/fpcsrc/${pascal_version} NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(pascal_source ${KELVANE_PASCAL_SOURCE_${pascal_version}})
set(pascal_units ${CMAKE_CURRENT_BINARY_DIR}/pascal)
file(MAKE_DIRECTORY ${pascal_units})

if(pascal_bits EQUAL 64)
  set(pascal_compiler ${KELVANE_PASCAL})
  set(pascal_processor x86_64)
  set(pascal_start sysinit)
else()
  set(pascal_compiler ${pascal_units}/compiler/ppcross386)
  set(pascal_processor i386)
  set(pascal_start sysinitpas)
  find_file(KELVANE_PASCAL_MESSAGES errore.msg REQUIRED NO_CMAKE_FIND_ROOT_PATH
    PATHS /usr/lib/x86_64-linux-gnu/fpc/${pascal_version}/msg)
  set(compiler ${pascal_source}/compiler)
  file(MAKE_DIRECTORY ${pascal_units}/compiler)
  add_custom_command(OUTPUT ${pascal_compiler}
    COMMAND ${KELVANE_PASCAL} -FE. ${compiler}/utils/msg2inc.pp
    COMMAND ./msg2inc ${KELVANE_PASCAL_MESSAGES} msg msg
    COMMAND ${KELVANE_PASCAL} -dI386 -dRELEASE -O1 -Fi. -Fi${compiler}
      -Fi${compiler}/i386 -Fi${compiler}/x86 -Fu${compiler} -Fu${compiler}/i386 -Fu${compiler}/x86
      -Fu${compiler}/systems -FU. -o${pascal_compiler} ${compiler}/pp.pas
    WORKING_DIRECTORY ${pascal_units}/compiler
    COMMENT "Compiling a Pascal compiler for 32-bit Windows" VERBATIM)
endif()
set(pascal_windows ${pascal_compiler} -n -Twin${pascal_bits})

set(pascal_folders)
foreach(folder rtl/win${pascal_bits} rtl/win rtl/inc rtl/${pascal_processor} rtl/win/wininc rtl/objpas
    rtl/objpas/sysutils rtl/objpas/classes rtl/charmaps packages/rtl-objpas/src/inc
    packages/rtl-objpas/src/win packages/winunits-base/src packages/fcl-registry/src
    packages/fcl-base/src)
  list(APPEND pascal_folders -Fu${pascal_source}/${folder} -Fi${pascal_source}/${folder})
endforeach()
file(CONFIGURE OUTPUT ${pascal_units}/windows_units.pp CONTENT
"unit windows_units;
interface
uses fpintres, ${pascal_start}, Windows, Messages, Math, Types, SysUtils, Classes, Variants, ActiveX,
  ComObj;
implementation
end.
")
set(pascal_library ${pascal_units}/windows_units.ppu)
set(pascal_compile ${pascal_windows} -Mdelphi -Fu${pascal_units})
add_custom_command(OUTPUT ${pascal_library}
  COMMAND ${pascal_windows} -Us -Sg ${pascal_folders} -FU${pascal_units}
    ${pascal_source}/rtl/win${pascal_bits}/system.pp
  COMMAND ${pascal_windows} ${pascal_folders} -FU${pascal_units} ${pascal_units}/windows_units.pp
  DEPENDS ${pascal_compiler} ${pascal_units}/windows_units.pp
  COMMENT "Compiling the Pascal run-time library" VERBATIM)
