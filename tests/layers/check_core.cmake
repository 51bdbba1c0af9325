# cmake -DCORE=LIBRARIES -DWINDOWS=LIBRARIES -P check_core.cmake: fails when the core, which has to
# run without a display, is linked with what draws windows. Lists are separated by commas.
cmake_minimum_required(VERSION 3.25)
string(REPLACE "," ";" CORE "${CORE}")
string(REPLACE "," ";" WINDOWS "${WINDOWS}")

# What the layer of the windows must be seen to link: else nothing would ever be found.
foreach(library Qt6::Gui Qt6::Widgets)
  if(NOT library IN_LIST WINDOWS)
    message(SEND_ERROR "${library} is not seen where it is linked, so this check checks nothing")
  endif()
endforeach()
foreach(library Qt6::Core Qt6::Sql)
  if(NOT library IN_LIST CORE)
    message(SEND_ERROR "${library} is not seen where it is linked, so this check checks nothing")
  endif()
endforeach()

foreach(library IN LISTS CORE)
  if(library MATCHES "Gui|Widgets|OpenGL|PrintSupport|kavena_(windows|app)")
    message(SEND_ERROR "The core is linked with ${library}")
  endif()
endforeach()
