# The Debian package: cpack -G DEB in the build folder, or packaging/build-package.
find_program(gzip gzip)
find_program(date date)
find_program(shlibdeps dpkg-shlibdeps)
if(NOT gzip OR NOT date OR NOT shlibdeps)
    return()
endif()

# ------------------------------------------------------------------- files of the package alone

set(maintainer "The Zorva authors <zorva@example.org>")

# The package's changelog: a block for each release, ending with its maintainer and date.
set(changelog "")
set(ending "")
foreach(line IN LISTS ZORVA_CHANGES)
    if(line MATCHES "^([0-9.]+)\\|(.*)$")
        execute_process(COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C ${date} -u -R -d "${CMAKE_MATCH_2} 12:00 UTC"
                        OUTPUT_VARIABLE when OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
        string(APPEND changelog "${ending}zorva (${CMAKE_MATCH_1}) unstable; urgency=medium\n\n")
        set(ending "\n -- ${maintainer}  ${when}\n\n")
    else()
        string(APPEND changelog "  ${line}\n")
    endif()
endforeach()
string(STRIP "${ending}" ending)
file(CONFIGURE OUTPUT ${generated}/changelog CONTENT "${changelog}\n ${ending}\n" @ONLY)

function(zorva_compress from to)
    add_custom_command(OUTPUT ${to} COMMAND ${gzip} -9nc ${from} > ${to} DEPENDS ${from} VERBATIM)
endfunction()
file(MAKE_DIRECTORY ${generated}/gz/man/man6 ${generated}/gz/man/es/man6)
set(compressed ${generated}/gz/changelog.gz)
zorva_compress(${generated}/changelog ${generated}/gz/changelog.gz)
foreach(page man6/zorva32.6 es/man6/zorva32.6)
    zorva_compress(${generated}/man/${page} ${generated}/gz/man/${page}.gz)
    list(APPEND compressed ${generated}/gz/man/${page}.gz)
endforeach()
add_custom_target(zorva_compressed ALL DEPENDS ${compressed})

install(TARGETS zorva32 DESTINATION games COMPONENT debian EXCLUDE_FROM_ALL)
install(DIRECTORY ${generated}/gz/man/ DESTINATION share/man COMPONENT debian EXCLUDE_FROM_ALL)
install(FILES ${generated}/gz/changelog.gz debian/copyright DESTINATION share/doc/zorva
        COMPONENT debian EXCLUDE_FROM_ALL)

# ------------------------------------------------------------------------------------ the package

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zorva)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT ${maintainer})
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
    GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL shared debian)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_NAME zorva)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${maintainer})
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${PROJECT_HOMEPAGE_URL})
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The fonts. The libraries that the program is linked with, SDL2 among them, are found by shlibdeps.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-lato, fonts-vollkorn, fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS qt6-wayland)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Parchís, the Spanish race game on a cross-shaped board")
set(CPACK_PACKAGE_DESCRIPTION
"Up to four colours race around the board, each played by a person or by
the computer at a level of your choice. The program throws the die, keeps
the rules with their four options, walks the pieces and writes down every
move. Its recorder steps back and forth through the game and restores an
earlier position, its tutor advises, and a game that is left goes on where
it was. All texts are Spanish.")
include(CPack)
