# Reads the releases from CHANGELOG.md. Sets ZORVA_RELEASES for the software catalogue and ZORVA_CHANGES, a list
# of "version|date" and "* text", for the package's changelog. The newest must be the project's version.
set(changes ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${changes})
file(STRINGS ${changes} lines ENCODING UTF-8)

set(ZORVA_RELEASES "")
set(ZORVA_CHANGES "")
foreach(line IN LISTS lines)
    string(REPLACE ";" "\\;" line "${line}")  # a semicolon would split the list
    if(line MATCHES "^## ([0-9.]+) - ([0-9]+-[0-9]+-[0-9]+)$")
        string(APPEND ZORVA_RELEASES
               "    <release version=\"${CMAKE_MATCH_1}\" date=\"${CMAKE_MATCH_2}\"/>\n")
        list(APPEND ZORVA_CHANGES "${CMAKE_MATCH_1}|${CMAKE_MATCH_2}")
    elseif(line MATCHES "^- (.*)$")
        list(APPEND ZORVA_CHANGES "* ${CMAKE_MATCH_1}")
    elseif(line MATCHES "^  ([^ ].*)$")
        list(APPEND ZORVA_CHANGES "  ${CMAKE_MATCH_1}")
    endif()
endforeach()

list(GET ZORVA_CHANGES 0 newest)
if(NOT newest MATCHES "^${PROJECT_VERSION}\\|([0-9-]+)$")
    message(FATAL_ERROR "CHANGELOG.md begins with ${newest}, but the version is ${PROJECT_VERSION}")
endif()
set(ZORVA_RELEASE_DATE ${CMAKE_MATCH_1})
