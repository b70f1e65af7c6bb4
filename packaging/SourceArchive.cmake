# The source archive of the committed files. The same commit gives the same bytes.
find_program(git git)
if(NOT git OR NOT EXISTS ${PROJECT_SOURCE_DIR}/.git)
    return()
endif()
set(name zorva-${PROJECT_VERSION})
add_custom_target(source-archive
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/packages
    COMMAND ${git} -C ${PROJECT_SOURCE_DIR} archive --prefix=${name}/
            --output=${PROJECT_BINARY_DIR}/packages/${name}.tar.gz HEAD
    COMMENT "Packing ${name}.tar.gz"
    VERBATIM)
