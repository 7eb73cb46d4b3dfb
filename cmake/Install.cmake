# Where an installation has what, below any prefix. A program finds the rest from where it is itself: in the build folder
# links stand in the same places, so that it knows no other way and no path of the machine that it was built on.

include(GNUInstallDirs)
set(KORVANE_PACKAGE import-svg-korvane)

if(WIN32)   # which looks for libraries beside the program
    set(KORVANE_PROGRAMS .)
    set(KORVANE_LIBRARIES .)
    set(KORVANE_ENCODER encoder)
else()
    set(KORVANE_PROGRAMS ${CMAKE_INSTALL_BINDIR})
    set(KORVANE_LIBRARIES ${CMAKE_INSTALL_LIBDIR}/${KORVANE_PACKAGE})
    set(KORVANE_ENCODER ${CMAKE_INSTALL_DATADIR}/${KORVANE_PACKAGE}/encoder)
endif()

# From the folder of a program.
set(KORVANE_LIBRARIES_PLACE .)
if(NOT WIN32)
    file(RELATIVE_PATH KORVANE_LIBRARIES_PLACE "/${KORVANE_PROGRAMS}" "/${KORVANE_LIBRARIES}")
    set(CMAKE_INSTALL_RPATH "$ORIGIN/${KORVANE_LIBRARIES_PLACE}")
endif()
file(RELATIVE_PATH KORVANE_ENCODER_PLACE "/${KORVANE_PROGRAMS}" "/${KORVANE_ENCODER}")

# install_program(NAME) and install_private_library(NAME); nothing of ours is there to be linked to.
function(install_program target)
    install(TARGETS ${target} RUNTIME DESTINATION ${KORVANE_PROGRAMS})
endfunction()

function(install_private_library target)
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN")
    install(TARGETS ${target}
        RUNTIME DESTINATION ${KORVANE_LIBRARIES}
        LIBRARY DESTINATION ${KORVANE_LIBRARIES})
endfunction()

# link_encoder() lets the programs of this folder of the build find the encoder.
function(link_encoder)
    set(programs "${CMAKE_CURRENT_BINARY_DIR}")
    if(CMAKE_RUNTIME_OUTPUT_DIRECTORY)
        set(programs "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
    endif()
    get_filename_component(link "${KORVANE_ENCODER_PLACE}" ABSOLUTE BASE_DIR "${programs}")
    get_filename_component(folder "${link}" DIRECTORY)
    file(MAKE_DIRECTORY "${folder}")
    file(CREATE_LINK "${PROJECT_SOURCE_DIR}/ReferenceHost/export" "${link}" SYMBOLIC)
endfunction()

# link_beside(TARGET OTHER PLACE) lets the program TARGET find what is built as OTHER in the folder PLACE, seen from its own.
function(link_beside target other place)
    add_dependencies(${target} ${other})
    if(CMAKE_RUNTIME_OUTPUT_DIRECTORY)   # where OTHER is built, too
        return()
    endif()
    set(folder "$<TARGET_FILE_DIR:${target}>/${place}")
    add_custom_command(TARGET ${target} POST_BUILD VERBATIM
        COMMAND ${CMAKE_COMMAND} -E make_directory "${folder}"
        COMMAND ${CMAKE_COMMAND} -E create_symlink $<TARGET_FILE:${other}> "${folder}/$<TARGET_FILE_NAME:${other}>")
endfunction()
