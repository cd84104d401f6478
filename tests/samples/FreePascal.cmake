# Compiles Pascal for 64-bit Windows with the distribution's compiler, which has an assembler and a
# linker of its own. Its run-time library for Windows is compiled from the compiler's own sources.
find_program(KELVANE_PASCAL ppcx64 REQUIRED)
execute_process(COMMAND ${KELVANE_PASCAL} -iV OUTPUT_VARIABLE pascal_version
  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
find_path(KELVANE_PASCAL_SOURCE_${pascal_version} rtl/win64/system.pp
  PATHS /usr/share/fpcsrc/${pascal_version} NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(pascal_source ${KELVANE_PASCAL_SOURCE_${pascal_version}})
set(pascal_units ${CMAKE_CURRENT_BINARY_DIR}/pascal)
set(pascal_compile ${KELVANE_PASCAL} -n -Twin64 -vew-n-h-)

set(pascal_folders)
foreach(folder rtl/win64 rtl/inc rtl/x86_64 rtl/win rtl/win/wininc rtl/objpas rtl/objpas/sysutils
    rtl/objpas/classes rtl/charmaps packages/rtl-objpas/src/inc packages/rtl-objpas/src/win
    packages/winunits-base/src packages/fcl-registry/src packages/fcl-base/src)
  list(APPEND pascal_folders -Fu${pascal_source}/${folder} -Fi${pascal_source}/${folder})
endforeach()
file(WRITE ${pascal_units}/windows_units.pp "unit windows_units;\ninterface\nuses fpintres, sysinit,
  Windows, Messages, Math, Types, SysUtils, Classes, Variants, ActiveX, ComObj;
implementation\nend.\n")
add_custom_command(OUTPUT ${pascal_units}/windows_units.ppu
  COMMAND ${pascal_compile} -Us -Sg ${pascal_folders} -FU${pascal_units}
    ${pascal_source}/rtl/win64/system.pp
  COMMAND ${pascal_compile} ${pascal_folders} -FU${pascal_units} ${pascal_units}/windows_units.pp
  COMMENT "Compiling the Pascal run-time library" VERBATIM)
