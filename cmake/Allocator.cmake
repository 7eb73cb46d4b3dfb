# The allocator of the programs. A third of an import with glibc's is page faults and merging what trees leave behind.

option(KORVANE_MIMALLOC "Link the programs to mimalloc, where it is installed" ON)

# Linked as a shared library and first, so that malloc and free of every library are its own, also those of an
# add-in loaded later: what one allocates another may free. The add-in's library links none and takes its host's.
set(KORVANE_ALLOCATOR "")
if(KORVANE_MIMALLOC AND NOT KORVANE_SANITIZE AND NOT WIN32)
    find_package(mimalloc QUIET)
    if(TARGET mimalloc)
        add_library(ProgramAllocator INTERFACE)
        target_sources(ProgramAllocator INTERFACE ${CMAKE_CURRENT_LIST_DIR}/ThrowingNew.cpp)
        target_link_libraries(ProgramAllocator INTERFACE mimalloc)
        set(KORVANE_ALLOCATOR ProgramAllocator)
    endif()
endif()
