# Compiles for 64-bit Windows on Debian, with the compiler whose threads are the POSIX ones, against the libraries that
# libraries.sh has built. STEMP_WINDOWS_LIBRARIES in the environment names another folder for them.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)
set(CMAKE_AR ${triplet}-gcc-ar-posix CACHE FILEPATH "")
set(CMAKE_RANLIB ${triplet}-gcc-ranlib-posix CACHE FILEPATH "")

set(libraries $ENV{STEMP_WINDOWS_LIBRARIES})
if(NOT libraries)
  cmake_path(SET libraries NORMALIZE ${CMAKE_CURRENT_LIST_DIR}/../../build/windows-libraries)
endif()
set(CMAKE_PREFIX_PATH ${libraries}/installed)
set(CMAKE_FIND_ROOT_PATH ${libraries}/installed /usr/${triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# moc, uic, rcc and lrelease run here, so they are this machine's own.
set(QT_HOST_PATH /usr CACHE PATH "")
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake CACHE PATH "")
# What pkg-config knows are this machine's libraries.
set(ENV{PKG_CONFIG_LIBDIR} /nonexistent)
set(ENV{PKG_CONFIG_PATH} "")
