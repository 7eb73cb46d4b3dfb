# What every target of our own gets: warnings as errors and, in the asan preset, the sanitizers.

function(project_target target)
    if(MSVC)
        # C4251 warns of every standard type in an exported class; SDK and add-ins share one run-time library.
        target_compile_options(${target} PRIVATE /W4 /wd4251 /utf-8 /permissive-)
    else()
        target_compile_options(${target} PRIVATE
            -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
    endif()
    target_compile_definitions(${target} PRIVATE QT_NO_CAST_TO_ASCII)
    if(KORVANE_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    endif()
endfunction()
