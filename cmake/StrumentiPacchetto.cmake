# Read by cpack before it makes anything: the tools that a Debian package is made with, or one sentence on how to
# have them.
set(mancanti)
foreach(strumento file dpkg-shlibdeps strip)
    # Where a shell would find it, and nowhere else.
    find_program(trovato_${strumento} ${strumento} NO_CACHE NO_CMAKE_PATH NO_CMAKE_SYSTEM_PATH)
    if(NOT trovato_${strumento})
        list(APPEND mancanti ${strumento})
    endif()
endforeach()
if(mancanti)
    list(JOIN mancanti ", " mancanti)
    message(FATAL_ERROR "Per fare il pacchetto manca: ${mancanti}. Da root:\n"
                        "    apt-get install file dpkg-dev binutils")
endif()
