# Tests that each layer is linked with no more than it may use.
include(layers/linked.cmake)
# kavena_check_layer(LAYER TARGET ALLOWED...): a test that the target is linked with these libraries
# of Qt and of this program, and with no others.
function(kavena_check_layer layer target)
  kavena_linked_by(libraries ${target})
  list(JOIN libraries "," libraries)
  list(JOIN ARGN "," allowed)
  add_test(NAME layer_${layer}
    COMMAND ${CMAKE_COMMAND} -DLAYER=${layer} "-DLIBRARIES=${libraries}" "-DALLOWED=${allowed}"
            -P ${CMAKE_CURRENT_SOURCE_DIR}/layers/check_layer.cmake)
endfunction()
set(dbus)
if(NOT APPLE)
  set(dbus Qt6::DBus)
endif()
set(tags ICU::i18n ICU::uc TagLib::TagLib)
set(below_library kavena_library kavena_formats kavena_storage Qt6::Core Qt6::Sql ${tags}
                  zstd::libzstd_shared)
kavena_check_layer(storage kavena_storage kavena_storage Qt6::Core)
kavena_check_layer(formats kavena_formats kavena_formats kavena_storage Qt6::Core ${tags})
kavena_check_layer(library kavena_library ${below_library})
kavena_check_layer(devindex kavena_devindex kavena_devindex ${below_library} Qt6::Core5Compat
                   ${dbus})
kavena_check_layer(sound kavena_sound kavena_sound kavena_formats kavena_storage Qt6::Core ${tags})
kavena_check_layer(cli kavena_cli kavena_cli kavena_devindex kavena_sound kavena_translations
                   ${below_library}
                   Qt6::Core5Compat ${dbus})

# The check itself: a layer with one library too many, reached by way of another, is found, and so
# is one that is linked with a layer above it.
add_library(planted_widgets INTERFACE)
target_link_libraries(planted_widgets INTERFACE Qt6::Widgets)
add_library(planted_layer INTERFACE)
target_link_libraries(planted_layer INTERFACE kavena_storage planted_widgets)
kavena_check_layer(planted_windows planted_layer kavena_storage Qt6::Core)
set_tests_properties(layer_planted_windows PROPERTIES
  PASS_REGULAR_EXPRESSION "planted_windows is linked with Qt6::Gui, which is not allowed")
kavena_check_layer(planted_arrow kavena_formats kavena_formats Qt6::Core ${tags})
set_tests_properties(layer_planted_arrow PROPERTIES
  PASS_REGULAR_EXPRESSION "planted_arrow is linked with kavena_storage, which is not allowed")
kavena_check_layer(planted_tags kavena_formats kavena_formats kavena_storage Qt6::Core)
set_tests_properties(layer_planted_tags PROPERTIES
  PASS_REGULAR_EXPRESSION "planted_tags is linked with TagLib::TagLib, which is not allowed")
kavena_check_layer(planted_absence kavena_storage kavena_storage Qt6::Core Qt6::Sql)
set_tests_properties(layer_planted_absence PROPERTIES
  PASS_REGULAR_EXPRESSION "planted_absence is not seen to be linked with Qt6::Sql")
