# Installation: executables and the product's data side by side, as the program expects to find them.
set(HYG_INSTALL_ROOT lib/hygrion)

# hyg_install_program(<target>): the executable beside the data, and a link to it in bin.
function(hyg_install_program target)
  install(TARGETS ${target} RUNTIME DESTINATION ${HYG_INSTALL_ROOT})
  install(CODE "
    set(directory \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/bin\")
    file(MAKE_DIRECTORY \"\${directory}\")
    file(CREATE_LINK ../${HYG_INSTALL_ROOT}/$<TARGET_FILE_NAME:${target}> \"\${directory}/$<TARGET_FILE_NAME:${target}>\" SYMBOLIC)
    message(STATUS \"Installing: \${directory}/$<TARGET_FILE_NAME:${target}>\")")
endfunction()

set(HYG_DATA DB_materials DB_climate DB_templates examples)
foreach(data IN LISTS HYG_DATA)
  if(EXISTS "${CMAKE_SOURCE_DIR}/${data}")
    add_custom_target(data_${data} ALL
      COMMAND ${CMAKE_COMMAND} -E copy_directory "${CMAKE_SOURCE_DIR}/${data}" "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${data}")
    install(DIRECTORY ${data} DESTINATION ${HYG_INSTALL_ROOT})
  endif()
endforeach()
# The user guide, for the F1 key, and the pictures beside it that its pages show.
if(EXISTS "${CMAKE_SOURCE_DIR}/docs/user-guide")
  add_custom_target(data_user-guide ALL COMMAND ${CMAKE_COMMAND} -E copy_directory "${CMAKE_SOURCE_DIR}/docs/user-guide"
    "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/user-guide"
    COMMAND ${CMAKE_COMMAND} -E copy_directory "${CMAKE_SOURCE_DIR}/docs/images" "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/images")
  install(DIRECTORY docs/user-guide docs/images DESTINATION ${HYG_INSTALL_ROOT})
endif()
install(FILES README.md LICENSE CHANGELOG.md CONTRIBUTING.md DESTINATION share/doc/hygrion)
install(DIRECTORY docs DESTINATION share/doc/hygrion)

if(BUILD_TESTING)
  add_test(NAME Install.RunsWhereverItStands COMMAND ${CMAKE_COMMAND} -DBUILD=${CMAKE_BINARY_DIR}
    -DPREFIX=${CMAKE_BINARY_DIR}/install-test -P ${CMAKE_CURRENT_LIST_DIR}/TestInstall.cmake)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME hygrion)
set(CPACK_PACKAGE_CONTACT "Hygrion maintainers <maintainers@hygrion.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qttranslations5-l10n, bash-completion") # the toolkit's own texts, the TAB key
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
include(CPack)
