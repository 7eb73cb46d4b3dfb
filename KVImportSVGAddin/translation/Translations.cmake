# Compiles the translations with Qt's lrelease and embeds them as ":/translation/ImportSVG_<language>.qm".
#
#     include(translation/Translations.cmake)
#     kv_add_translations(<target>)
#
# <target> is a library or program that exists already. In a static library the linker drops the resource
# unless the program calls Q_INIT_RESOURCE(<target>_translations).
#
# The file names are those that the add-in asks for, "japnese" and "portugese" included.

find_package(Qt5 5.15 REQUIRED COMPONENTS LinguistTools)

function(kv_add_translations target)
    set(languages
        english german chinese-simplified chinese french italian japnese korean polish
        portugese-brazilian russian spanish turkish czech
    )
    list(TRANSFORM languages PREPEND "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/ImportSVG_" OUTPUT_VARIABLE sources)
    list(TRANSFORM sources APPEND ".ts")

    set(folder "${CMAKE_CURRENT_BINARY_DIR}/${target}_translations")
    set_source_files_properties(${sources} PROPERTIES OUTPUT_LOCATION "${folder}")
    qt5_add_translation(compiled ${sources} OPTIONS -silent)

    set(entries "")
    foreach(language IN LISTS languages)
        string(APPEND entries "    <file>ImportSVG_${language}.qm</file>\n")
    endforeach()
    set(resource "${folder}/${target}_translations.qrc")
    file(CONFIGURE OUTPUT "${resource}" @ONLY
        CONTENT "<RCC>\n  <qresource prefix=\"/translation\">\n${entries}  </qresource>\n</RCC>\n")
    qt5_add_resources(embedded "${resource}")
    target_sources(${target} PRIVATE ${embedded})
endfunction()
