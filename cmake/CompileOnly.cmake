# Included after project(): compiles everything and links nothing. An empty file stands for each library and program.

set(touch "<CMAKE_COMMAND> -E touch <TARGET>")
foreach(rule IN ITEMS CREATE_SHARED_LIBRARY CREATE_SHARED_MODULE LINK_EXECUTABLE ARCHIVE_CREATE ARCHIVE_FINISH)
    set(CMAKE_CXX_${rule} "${touch}")
endforeach()

# Linux's Qt has no import libraries, and CMake would ask for them.
set(CMAKE_IMPORT_LIBRARY_SUFFIX "")
