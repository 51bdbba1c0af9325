# cmake -DLAYER=NAME -DLIBRARIES=LIST -DALLOWED=LIST -P check_layer.cmake: fails when the layer is
# linked with a library of Qt or others, or another layer, that is not allowed, or is not seen
# to be linked with one that it needs. LIBRARIES is what it is linked with, by way of others too.
# Lists are separated by commas.
cmake_minimum_required(VERSION 3.25)
string(REPLACE "," ";" LIBRARIES "${LIBRARIES}")
string(REPLACE "," ";" ALLOWED "${ALLOWED}")

# Settings for the compiler that come with Qt, and those of this program; nothing to link with.
set(settings Qt6::Platform kavena_flags)

# A library of the list that is not there would mean that nothing is seen at all.
foreach(library IN LISTS ALLOWED)
  if(NOT library IN_LIST LIBRARIES)
    message(SEND_ERROR "${LAYER} is not seen to be linked with ${library}")
  endif()
endforeach()

list(FILTER LIBRARIES EXCLUDE REGEX "_resources_[0-9]+$") # parts of a layer
foreach(library IN LISTS LIBRARIES)
  if(library MATCHES "^(Qt6::|Qt6[A-Z]|ICU::|TagLib::|kavena_)" AND
     NOT library IN_LIST ALLOWED AND NOT library IN_LIST settings)
    message(SEND_ERROR "${LAYER} is linked with ${library}, which is not allowed")
  endif()
endforeach()
