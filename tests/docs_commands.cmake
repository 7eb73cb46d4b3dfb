# Checks README.md, CONTRIBUTING.md and docs/: each svg2dwg command in them runs (dry, in a copy of the samples), and each
# link leads to a file. User guide, man page and zsh's completion name exactly the options that there are; the last two
# also their values. (bash's completion asks the program.)
#
#     cmake -DROOT=<source folder> -DSVG2DWG=<program> -DWORK=<scratch folder> -P docs_commands.cmake

cmake_minimum_required(VERSION 3.20)

set(failures "")

# The inputs that the documents may name.
function(make_inputs folder)
    file(REMOVE_RECURSE "${folder}")
    file(COPY "${ROOT}/samples" DESTINATION "${folder}")
    configure_file("${ROOT}/samples/flange.svg" "${folder}/plan.svg" COPYONLY)
    configure_file("${ROOT}/samples/floor-plan.svg" "${folder}/plans/hall.svg" COPYONLY)
endfunction()

function(fail text)
    set(failures "${failures}${text}\n" PARENT_SCOPE)
endfunction()

# Runs the lines of `document` that begin with a command; `commandCount` becomes how many there are.
function(run_commands document)
    file(STRINGS "${document}" lines REGEX "^(\\./run )?svg2dwg ")
    list(LENGTH lines count)
    set(commandCount ${count} PARENT_SCOPE)
    foreach(line IN LISTS lines)
        string(REGEX REPLACE "^(\\./run )?svg2dwg | +#.*$" "" line "${line}")
        separate_arguments(arguments UNIX_COMMAND "${line}")
        execute_process(COMMAND "${SVG2DWG}" ${arguments} --dry-run
            WORKING_DIRECTORY "${WORK}" RESULT_VARIABLE exitCode OUTPUT_QUIET ERROR_VARIABLE messages)
        if(NOT exitCode EQUAL 0)
            fail("${document}: svg2dwg ${line}: exit code ${exitCode}\n${messages}")
        endif()
    endforeach()
    set(failures "${failures}" PARENT_SCOPE)
endfunction()

# Whether the lines of `document` that begin with `start` name the options that --help lists.
function(compare_options document start)
    string(REGEX MATCHALL "\n  (-., )?--[a-z-]+" actual "${help}")
    file(STRINGS "${document}" lines REGEX "^${start}")
    set(documented "")
    foreach(line IN LISTS lines)
        string(REPLACE "\\-" "-" line "${line}")
        string(REGEX MATCH "--[a-z-]+" option "${line}")
        list(APPEND documented "${option}")
    endforeach()
    list(TRANSFORM actual REPLACE "^.*(--[a-z-]+)$" "\\1")
    list(SORT actual)
    list(SORT documented)
    if(NOT actual STREQUAL documented)
        fail("${document}: the options are\n  ${actual}\nand not\n  ${documented}")
    endif()
    set(failures "${failures}" PARENT_SCOPE)
endfunction()

# Whether `document` has all values to choose from that --help lists, such as "dwg|dxf|svg", with `separator` between.
function(compare_values document separator)
    file(READ "${document}" text)
    string(REGEX MATCHALL "<[a-z]+[|][a-z|]+>" choices "${help}")
    foreach(choice IN LISTS choices)
        string(REGEX REPLACE "[<>]" "" choice "${choice}")
        string(REPLACE "|" "${separator}" choice "${choice}")
        string(FIND "${text}" "${choice}" position)
        if(position EQUAL -1)
            fail("${document}: there is no ${choice}")
        endif()
    endforeach()
    set(failures "${failures}" PARENT_SCOPE)
endfunction()

function(check_links document)
    get_filename_component(folder "${document}" DIRECTORY)
    file(READ "${document}" text)
    string(REPLACE "](" "LINK(" text "${text}") # CMake would count the brackets in a list
    string(REGEX MATCHALL "LINK\\([^) ]+\\)" links "${text}")
    foreach(link IN LISTS links)
        string(REGEX REPLACE "^LINK.([^)#]*).*$" "\\1" target "${link}")
        if(NOT target MATCHES "^https?:" AND NOT EXISTS "${folder}/${target}")
            fail("${document}: no such file: ${target}")
        endif()
    endforeach()
    set(failures "${failures}" PARENT_SCOPE)
endfunction()

make_inputs("${WORK}")
file(GLOB documents "${ROOT}/README.md" "${ROOT}/CONTRIBUTING.md" "${ROOT}/docs/*.md")
foreach(document IN LISTS documents)
    run_commands("${document}")
    check_links("${document}")
    if(commandCount EQUAL 0 AND document MATCHES "README|user-guide")
        fail("${document}: no svg2dwg command was found")
    endif()
endforeach()

execute_process(COMMAND "${SVG2DWG}" --help OUTPUT_VARIABLE help COMMAND_ERROR_IS_FATAL ANY)
compare_options("${ROOT}/docs/user-guide.md" "[|] `-")
compare_options("${ROOT}/packaging/svg2dwg.1.in" ".fB.-")
compare_values("${ROOT}/packaging/svg2dwg.1.in" "|")
compare_options("${ROOT}/packaging/_svg2dwg" "    '.*--")
compare_values("${ROOT}/packaging/_svg2dwg" " ")

if(failures)
    message(FATAL_ERROR "${failures}")
endif()
