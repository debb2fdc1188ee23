# Run with -P. MODE update: the .ts files get the texts of the sources as they are now. MODE check:
# fails unless they have exactly those, each of them translated.
set(languages de en)
set(onlyIn_en -pluralonly)

foreach(language ${languages})
    set(file ${SOURCE}/ui/translations/skipnest_${language}.ts)
    if(MODE STREQUAL "check")
        file(MAKE_DIRECTORY ${WORK})
        set(target ${WORK}/check_${language}.ts)
        configure_file(${file} ${target} COPYONLY)
    else()
        set(target ${file})
    endif()
    execute_process(
        COMMAND ${LUPDATE} -I . -locations none -no-obsolete -source-language en
            -target-language ${language} ${onlyIn_${language}} app ui -ts ${target}
        WORKING_DIRECTORY ${SOURCE}
        RESULT_VARIABLE status OUTPUT_VARIABLE said ERROR_VARIABLE said)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "lupdate failed:\n${said}")
    endif()
    # Such a text stands in another context than the program looks it up in.
    string(REGEX MATCHALL "[^\n]*(lacks Q_OBJECT|unknown namespace)[^\n]*" lost "${said}")
    if(lost)
        message(SEND_ERROR "texts without a context: ${lost}")
    endif()
    if(MODE STREQUAL "check")
        file(READ ${file} ours)
        file(READ ${target} wanted)
        if(NOT ours STREQUAL wanted)
            message(SEND_ERROR "skipnest_${language}.ts has other texts than the sources: build "
                "update_translations. What should be there is in ${target}.")
        endif()
        string(REGEX MATCHALL "<source>[^<]*</source>[^<]*(<comment>[^<]*</comment>[^<]*)?<translation type=\"unfinished\"" open
            "${wanted}")
        foreach(entry ${open})
            string(REGEX REPLACE "</source>.*" "" entry "${entry}")
            string(REPLACE "<source>" "" entry "${entry}")
            message(SEND_ERROR "no ${language} text for: ${entry}")
        endforeach()
    endif()
endforeach()
