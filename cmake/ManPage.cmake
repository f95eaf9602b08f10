# Writes the manual page OUTPUT of the program PROGRAM (named NAME, summed up by SUMMARY) from
# what `PROGRAM --help` prints; compressed when GZIP names gzip. BINDIR: the program's folder.
execute_process(COMMAND ${PROGRAM} --help OUTPUT_VARIABLE help ERROR_VARIABLE errors RESULT_VARIABLE result
                TIMEOUT 60)
if(NOT result EQUAL 0 OR help STREQUAL "")
    message(FATAL_ERROR "${NAME} --help failed (${result}): ${errors}")
endif()
# Defaults that name the build folder's language files name the installed ones instead.
if(BINDIR)
    string(REPLACE "${BINDIR}/languages/" "/usr/share/dorvanta/languages/" help "${help}")
endif()
# roff: a backslash is written \e; a line starting with . or ' would be read as a request.
string(REPLACE "\\" "\\e" help "${help}")
string(REGEX REPLACE "(^|\n)([.'])" "\\1\\\\&\\2" help "${help}")
string(TOUPPER "${NAME}" title)
set(page ".TH ${title} 1 \"\" \"Dorvanta ${VERSION}\" \"User Commands\"\n")
string(APPEND page ".SH NAME\n${NAME} \\- ${SUMMARY}\n")
string(APPEND page ".SH DESCRIPTION\n.nf\n${help}\n.fi\n")
string(APPEND page ".SH SEE ALSO\n.BR dorvanta (1),\n.BR dorvanta-cli (1),\n.BR dorvanta-server (1)\n")
if(GZIP)
    string(REGEX REPLACE "\\.gz$" "" plain "${OUTPUT}")
    file(WRITE ${plain} "${page}")
    execute_process(COMMAND ${GZIP} -9nf ${plain} RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "gzip of ${plain} failed")
    endif()
else()
    file(WRITE ${OUTPUT} "${page}")
endif()
