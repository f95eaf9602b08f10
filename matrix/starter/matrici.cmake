# The starter set of matrices in the web server's data folder: each text source of txt/ sealed by
# `dorvanta-cli matrix seal` as public/10elotto/matrici/<NAME>.DAT, and public/10elotto/lista.asp
# naming them. The matrices are computed offline (genera.py); the build only seals them, again only
# when a source changes, and copies them after the sample data so that they are always there.
set(DV_MATRICI_SIGILLATE ${CMAKE_BINARY_DIR}/matrici-sigillate)
set(DV_MATRICI_FILE "")
set(DV_MATRICI_LISTA "")

function(dv_matrice nome v k t m copertura)
    set(out ${DV_MATRICI_SIGILLATE}/${nome}.DAT)
    add_custom_command(OUTPUT ${out}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${DV_MATRICI_SIGILLATE}
        COMMAND $<TARGET_FILE:dorvanta-cli> matrix seal ${CMAKE_CURRENT_LIST_DIR}/txt/${nome}.txt -o ${out}
                --t ${t} --m ${m} --author Dorvanta
                "--desc=${v} numeri, colonne da ${k}, garanzia ${t} se escono ${m}"
                --from 20260101 --to 20361231 --cover ${copertura}%
        DEPENDS ${CMAKE_CURRENT_LIST_DIR}/txt/${nome}.txt dorvanta-cli
        VERBATIM)
    set(DV_MATRICI_FILE ${DV_MATRICI_FILE} ${out} PARENT_SCOPE)
    set(DV_MATRICI_LISTA "${DV_MATRICI_LISTA}${nome}.DAT\r\n" PARENT_SCOPE)
endfunction()

include(${CMAKE_CURRENT_LIST_DIR}/elenco.cmake)
file(GENERATE OUTPUT ${DV_MATRICI_SIGILLATE}/lista.asp CONTENT "${DV_MATRICI_LISTA}")

add_custom_target(dv_server_matrici ALL
    COMMAND ${CMAKE_COMMAND} -E make_directory ${DV_SERVER_DATA}/public/10elotto/matrici
    COMMAND ${CMAKE_COMMAND} -E copy ${DV_MATRICI_FILE} ${DV_SERVER_DATA}/public/10elotto/matrici/
    COMMAND ${CMAKE_COMMAND} -E copy ${DV_MATRICI_SIGILLATE}/lista.asp ${DV_SERVER_DATA}/public/10elotto/lista.asp
    DEPENDS ${DV_MATRICI_FILE}
    COMMENT "Sealing the starter set of matrices into the web server's data folder")
add_dependencies(dv_server_matrici dv_server_data)
