# Toolchain file: builds for Windows on Debian, with MinGW and the Qt that scripts/windows-qt makes.
#
# QT_WINDOWS is that Qt's folder. Without it Linux's own Qt headers are compiled against, and nothing can be linked.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../tests/windows/run)

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${QT_WINDOWS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QT_WINDOWS)

# A program that holds zlib needs no library more.
set(ZLIB_LIBRARY /usr/x86_64-w64-mingw32/lib/libz.a CACHE FILEPATH "zlib, to link statically")

# The same sources make the same programs, whenever they are built.
add_link_options(LINKER:--no-insert-timestamp)

# Qt's tools run here, and only Linux's Qt has those of its translators.
execute_process(COMMAND qmake -query QT_INSTALL_LIBS OUTPUT_VARIABLE linuxQt OUTPUT_STRIP_TRAILING_WHITESPACE)
set(Qt5LinguistTools_DIR "${linuxQt}/cmake/Qt5LinguistTools")
if(QT_WINDOWS)
    set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
    list(APPEND CMAKE_PREFIX_PATH "${QT_WINDOWS}")
else()
    set(Qt5_DIR "${linuxQt}/cmake/Qt5")
endif()
