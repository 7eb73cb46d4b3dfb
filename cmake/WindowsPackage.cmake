# What is installed for Windows beside what is ours: all that a machine with nothing but Windows and Node.js lacks, and the
# licences of that. scripts/package makes a zip of it and tries it.

set(documents "${PROJECT_SOURCE_DIR}/packaging/windows")

foreach(module IN ITEMS Core Gui Svg Widgets Xml)
    list(APPEND qtLibraries "${QT_WINDOWS}/bin/Qt5${module}.dll")
endforeach()
install(FILES ${qtLibraries} DESTINATION ${KORVANE_LIBRARIES})
foreach(plugin IN ITEMS platforms/qwindows styles/qwindowsvistastyle imageformats/qsvg iconengines/qsvgicon)
    get_filename_component(folder ${plugin} DIRECTORY)
    install(FILES "${QT_WINDOWS}/plugins/${plugin}.dll" DESTINATION ${KORVANE_PROGRAMS}/${folder})
endforeach()
# Qt looks for plugins beside the programs, and nowhere else.
install(FILES "${documents}/qt.conf" DESTINATION ${KORVANE_PROGRAMS})

# The compiler's own come with debug information, ten times their size.
foreach(library IN ITEMS libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
        OUTPUT_VARIABLE place OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    get_filename_component(place "${place}" REALPATH)
    install(FILES "${place}" DESTINATION ${KORVANE_LIBRARIES})
    install(CODE "execute_process(COMMAND ${CMAKE_STRIP}
        \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${KORVANE_LIBRARIES}/${library}\" COMMAND_ERROR_IS_FATAL ANY)")
endforeach()

# install_text(SOURCE FOLDER NAME) installs SOURCE, its @VARIABLES@ replaced, with the line ends of Windows.
function(install_text source folder name)
    set(file "${PROJECT_BINARY_DIR}/texts/${folder}/${name}")
    configure_file("${source}" "${file}" @ONLY NEWLINE_STYLE WIN32)
    install(FILES "${file}" DESTINATION ${folder})
endfunction()

install_text("${PROJECT_SOURCE_DIR}/docs/windows.md" . README.txt)
foreach(part IN ITEMS qtbase:qtbase5-dev qtsvg:libqt5svg5)
    string(REPLACE ":" ";" part ${part})
    list(GET part 0 name)
    list(GET part 1 package)
    execute_process(COMMAND dpkg-query -W -f \${source:Version} ${package}
        OUTPUT_VARIABLE ${name}_source COMMAND_ERROR_IS_FATAL ANY)
endforeach()
install_text("${documents}/licences.txt.in" licences README.txt)
install_text("${PROJECT_SOURCE_DIR}/scripts/windows-qt" licences build-qt.txt)

# install_licence(PACKAGE NAME) installs the copyright file of a Debian package.
function(install_licence package name)
    install(FILES "/usr/share/doc/${package}/copyright" RENAME ${name}.txt DESTINATION licences)
endfunction()

install_licence(qtbase5-dev Qt)
install_licence(libqt5svg5 QtSvg)
install_licence(gcc-mingw-w64-base GCC)
install_licence(mingw-w64-x86-64-dev mingw-w64)
install_licence(libz-mingw-w64-dev zlib)
foreach(licence IN ITEMS GPL-2 GPL-3 LGPL-2.1 LGPL-3)
    install(FILES "/usr/share/common-licenses/${licence}" RENAME ${licence}.txt DESTINATION licences)
endforeach()
