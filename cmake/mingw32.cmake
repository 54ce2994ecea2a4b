# Cross-compiles for 32-bit Windows; what is built runs through Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER i686-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER i686-w64-mingw32-g++-posix) # the flavour with std::thread and std::mutex
set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/i686-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../tools/wine32)

# No DLLs of the compiler's, nothing that is not called, loadable from Windows XP (5.1) on.
set(linking "-static -Wl,--gc-sections,--dynamicbase,--nxcompat")
set(linking "${linking},--major-os-version=5,--minor-os-version=1")
set(linking "${linking},--major-subsystem-version=5,--minor-subsystem-version=1")
set(CMAKE_CXX_FLAGS_INIT "-ffunction-sections -fdata-sections")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${linking}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${linking},--enable-stdcall-fixup")
set(CMAKE_EXE_LINKER_FLAGS_RELEASE_INIT "-s")
set(CMAKE_SHARED_LINKER_FLAGS_RELEASE_INIT "-s")
