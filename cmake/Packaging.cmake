# Installation and packages: a .deb and a .tar.gz of the Qt program, a .zip of the Windows one. Components:
# - "system": the folders of a Unix system, below any prefix; "debian" and "local" add the files that contain the prefix
# - "archive": the files above those folders in the .tar.gz
# - "portable": the folder of the .zip
set(HALCYON_HOMEPAGE "https://halcyon-k7.example.org" CACHE STRING "Where the project and its pictures are on the web")
set(HALCYON_CONTACT "The Halcyon_K7 authors <authors@halcyon-k7.example.org>" CACHE STRING "Who maintains the packages")
set(HALCYON_ID org.halcyon_k7.halcyon_k7)
set(program halcyon_k7)
if(WIN32)
  set(program Halcyon_K7)
endif()
install(TARGETS ${program} halcyon_k7ctl RUNTIME DESTINATION bin COMPONENT system)
install(TARGETS ${program} halcyon_k7ctl RUNTIME DESTINATION . COMPONENT portable EXCLUDE_FROM_ALL)

find_program(HALCYON_RSVG_CONVERT rsvg-convert)
find_program(HALCYON_CMARK cmark-gfm)
if(NOT Python3_FOUND OR NOT HALCYON_RSVG_CONVERT OR NOT HALCYON_CMARK)
  message(STATUS "No packages from this build: scripts/setup package installs what they need")
  return()
endif()

set(made ${CMAKE_BINARY_DIR}/packaging)
set(source ${PROJECT_SOURCE_DIR}/packaging)
file(MAKE_DIRECTORY ${made})

# The change log has the date of the version; a version that is not listed there cannot be packaged.
set(changelog ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${changelog} ${source}/releases ${PROJECT_SOURCE_DIR}/LICENSE)
foreach(form IN ITEMS date metainfo debian)
  execute_process(COMMAND ${Python3_EXECUTABLE} ${source}/releases ${changelog} ${PROJECT_VERSION} ${form} ${HALCYON_CONTACT}
    OUTPUT_VARIABLE releases_${form} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
set(HALCYON_RELEASE_DATE ${releases_date})
set(HALCYON_RELEASES "${releases_metainfo}")
file(WRITE ${made}/changelog "${releases_debian}")
file(READ ${PROJECT_SOURCE_DIR}/LICENSE HALCYON_LICENSE_TEXT)
string(REGEX REPLACE "^.*authors\n\n" "" HALCYON_LICENSE_TEXT "${HALCYON_LICENSE_TEXT}")
string(REGEX REPLACE "\n$" "" HALCYON_LICENSE_TEXT "${HALCYON_LICENSE_TEXT}")
string(REPLACE "\n\n" "\n.\n" HALCYON_LICENSE_TEXT "${HALCYON_LICENSE_TEXT}")
string(REPLACE "\n" "\n " HALCYON_LICENSE_TEXT " ${HALCYON_LICENSE_TEXT}")
configure_file(${source}/copyright.in ${made}/copyright @ONLY)
configure_file(${source}/halcyon_k7.1.in ${made}/halcyon_k7.1 @ONLY)
configure_file(${source}/halcyon_k7ctl.1.in ${made}/halcyon_k7ctl.1 @ONLY)
if(NOT WIN32)
  foreach(component_and_prefix IN ITEMS debian:/usr local:/usr/local)
    string(REPLACE ":" ";" pair ${component_and_prefix})
    list(GET pair 0 component)
    list(GET pair 1 HALCYON_PREFIX)
    configure_file(${source}/${HALCYON_ID}.desktop.in ${made}/${component}/${HALCYON_ID}.desktop @ONLY)
  endforeach()
endif()
configure_file(${source}/${HALCYON_ID}.metainfo.xml.in ${made}/${HALCYON_ID}.metainfo.xml @ONLY)

set(system_name linux)
if(WIN32)
  set(system_name windows)
endif()

set(outputs)
macro(make name)
  add_custom_command(OUTPUT ${made}/${name} ${ARGN} WORKING_DIRECTORY ${made} VERBATIM)
  list(APPEND outputs ${made}/${name})
endmacro()
foreach(guide IN ITEMS user-guide formats reliability)
  make(${guide}.html DEPENDS ${PROJECT_SOURCE_DIR}/docs/${guide}.md ${source}/page
    COMMAND ${Python3_EXECUTABLE} ${source}/page ${PROJECT_SOURCE_DIR}/docs/${guide}.md ${guide}.html ${system_name})
endforeach()
if(NOT WIN32)
  make(${HALCYON_ID}.png DEPENDS ${source}/halcyon_k7.svg
    COMMAND ${HALCYON_RSVG_CONVERT} -w 48 -h 48 ${source}/halcyon_k7.svg -o ${HALCYON_ID}.png)
  foreach(page IN ITEMS halcyon_k7.1 halcyon_k7ctl.1 changelog)
    make(${page}.gz DEPENDS ${made}/${page} COMMAND gzip -9nkf ${page})
  endforeach()
endif()
add_custom_target(packaging_files ALL DEPENDS ${outputs})

set(samples ${PROJECT_SOURCE_DIR}/samples/List.ini ${PROJECT_SOURCE_DIR}/samples/User.ini
  ${PROJECT_SOURCE_DIR}/samples/DRMSchedule.txt)
set(guides ${made}/user-guide.html ${made}/formats.html ${made}/reliability.html)
set(pictures_from DIRECTORY ${PROJECT_SOURCE_DIR}/docs/pictures)
set(pictures_of_system FILES_MATCHING PATTERN "${system_name}-*.png")

# One folder
set(one COMPONENT portable EXCLUDE_FROM_ALL)
install(FILES ${source}/README-windows.txt DESTINATION . RENAME README.txt ${one})
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION . RENAME LICENSE.txt ${one})
install(FILES ${guides} DESTINATION guide ${one})
install(${pictures_from} DESTINATION guide ${one} ${pictures_of_system})
install(FILES ${samples} DESTINATION samples ${one})

# The folders of a Unix system
set(doc share/doc/halcyon-k7)
if(NOT WIN32)
  install(FILES ${made}/debian/${HALCYON_ID}.desktop DESTINATION share/applications COMPONENT debian EXCLUDE_FROM_ALL)
  install(FILES ${made}/local/${HALCYON_ID}.desktop DESTINATION share/applications COMPONENT local)
  install(FILES ${source}/README-linux.txt DESTINATION . RENAME README.txt COMPONENT archive EXCLUDE_FROM_ALL)
  install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION . RENAME LICENSE.txt COMPONENT archive EXCLUDE_FROM_ALL)
  install(FILES ${made}/${HALCYON_ID}.metainfo.xml DESTINATION share/metainfo COMPONENT system)
  install(FILES ${source}/halcyon_k7.svg DESTINATION share/icons/hicolor/scalable/apps RENAME ${HALCYON_ID}.svg COMPONENT system)
  install(FILES ${made}/${HALCYON_ID}.png DESTINATION share/icons/hicolor/48x48/apps COMPONENT system)
  install(FILES ${source}/halcyon_k7ctl.bash DESTINATION share/bash-completion/completions RENAME halcyon_k7ctl COMPONENT system)
  install(FILES ${made}/halcyon_k7.1.gz ${made}/halcyon_k7ctl.1.gz DESTINATION share/man/man1 COMPONENT system)
  install(FILES ${guides} ${made}/changelog.gz ${made}/copyright DESTINATION ${doc} COMPONENT system)
  install(${pictures_from} DESTINATION ${doc} COMPONENT system ${pictures_of_system})
  install(FILES ${samples} DESTINATION ${doc}/examples COMPONENT system)
endif()

set(CPACK_PACKAGE_NAME ${program})
set(CPACK_PACKAGE_VENDOR "The Halcyon_K7 authors")
set(CPACK_PACKAGE_CONTACT "${HALCYON_CONTACT}")
set(CPACK_PACKAGE_HOMEPAGE_URL ${HALCYON_HOMEPAGE})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "station memory manager for a DRM shortwave receiver")
set(CPACK_STRIP_FILES TRUE)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_SOURCE_DIR}/build/packages)
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_LIST_DIR}/PackageLayout.cmake)
string(TOLOWER "${program}-${PROJECT_VERSION}-${system_name}-${CMAKE_SYSTEM_PROCESSOR}" CPACK_PACKAGE_FILE_NAME)
set(CPACK_GENERATOR DEB TGZ)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
endif()
set(CPACK_DEBIAN_PACKAGE_NAME halcyon-k7)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION hamradio)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
if(NOT WIN32)
  # Loaded by name, so the tool that lists linked libraries does not find it; the second name is Debian 13's.
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "libcurl4 (>= 7.88) | libcurl4t64")
endif()
# Station names contain any script; without these fonts those of East Asia and India appear as boxes.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
  "qt6-translations-l10n, fonts-wqy-zenhei | fonts-noto-cjk, fonts-lohit-deva | fonts-noto-core, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Halcyon_K7 shows the four station lists of a DRM shortwave receiver, DRM, AM,
FM and Favourite, in the four tabs of one window. The receiver is found as a
disk when it is plugged in; the lists are loaded from it, edited in place,
extended, sorted, rebuilt from a published broadcast schedule, and saved back.")
include(CPack)
