# Cross building for 64-bit Windows on Debian with MinGW-w64 (package
# g++-mingw-w64-x86-64-posix). The posix thread model is needed: with the win32 one this
# GCC lacks std::thread and std::mutex. Used for the Windows Qt and for the program.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(rigwright_mingw x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${rigwright_mingw}-gcc-posix)
set(CMAKE_CXX_COMPILER ${rigwright_mingw}-g++-posix)
set(CMAKE_RC_COMPILER ${rigwright_mingw}-windres)

# Headers and libraries come from the MinGW tree only, never from the host's /usr; programs
# (moc, rcc, the compilers) from the host. Packages are looked for in both, since the
# Windows Qt lives in a folder of its own (CMAKE_PREFIX_PATH) and its tools on the host.
set(CMAKE_FIND_ROOT_PATH /usr/${rigwright_mingw})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
