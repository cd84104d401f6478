# Cross-building for 32-bit Windows.
set(CMAKE_SYSTEM_PROCESSOR i686)
set(KELVANE_TRIPLET i686-w64-mingw32)

# SSE arithmetic instead of the x87's extended precision, so that results are those of the 64-bit
# build. Windows promises 4-byte stack alignment only, hence the realignment.
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")

include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
