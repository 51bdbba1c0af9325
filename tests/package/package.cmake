# The packages, in both brandings, of one build: those of the other one take the same programs, linked
# once more with its source, and the same rules of installation. Nothing of them is installed with
# the program.
function(kavena_other_program program layer)
  add_executable(${program}-otherbranding $<TARGET_OBJECTS:${program}>)
  target_link_libraries(${program}-otherbranding PRIVATE kavena_otherbranding kavena_${layer})
  target_link_options(${program}-otherbranding PRIVATE -s) # what is packed is stripped anyway
  set_target_properties(${program}-otherbranding PROPERTIES
    OUTPUT_NAME ${program}
    RUNTIME_OUTPUT_DIRECTORY ${other_packaging})
endfunction()

# FOLDER is where the packaging of that branding was configured.
function(kavena_package_test name branding folder)
  include(${PROJECT_SOURCE_DIR}/resources/branding/${branding}.cmake)
  add_test(NAME ${name}
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/package/check_deb.sh ${folder}/CPackConfig.cmake
            ${PROJECT_VERSION} ${CMAKE_CPACK_COMMAND} ${BRANDING_PACKAGE} ${BRANDING_TOOLS_PACKAGE}
            ${BRANDING_PRODUCT})
  set_tests_properties(${name} PROPERTIES TIMEOUT 180)
endfunction()

set(other_packaging ${CMAKE_CURRENT_BINARY_DIR}/packaging-otherbranding)
kavena_other_program(kavena-pc app)
kavena_other_program(kavena cli)
block()
  set(KAVENA_PROGRAM_SUFFIX -otherbranding)
  set(KAVENA_BRANDING ${other_branding})
  set(CPACK_OUTPUT_CONFIG_FILE ${other_packaging}/CPackConfig.cmake)
  set(CPACK_SOURCE_OUTPUT_CONFIG_FILE ${other_packaging}/CPackSourceConfig.cmake)
  set(CPACK_INSTALL_CMAKE_PROJECTS "${other_packaging};${PROJECT_NAME};ALL;/")
  add_subdirectory(${PROJECT_SOURCE_DIR}/packaging ${other_packaging} EXCLUDE_FROM_ALL)
endblock()

kavena_package_test(deb_package ${KAVENA_BRANDING} ${PROJECT_BINARY_DIR})
kavena_package_test(deb_package_otherbranding ${other_branding} ${other_packaging})
add_test(NAME metainfo_otherbranding
  COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/package/check_metainfo.py
          ${other_packaging}/org.kavena.KavenaPC.metainfo.xml ${PROJECT_SOURCE_DIR}
          ${PROJECT_VERSION})
