# The demonstration, in both brandings: the pictures of the help are those of both, and one build
# makes them all.
add_library(kavena_demo OBJECT
  demo/demo.cpp
  demo/demo.h
  demo/demoanswers.cpp
  demo/demosongs.cpp
  demo/demosongs.h
  demo/helppictures.cpp
  demo/helppictures.h
)
target_include_directories(kavena_demo PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(kavena_demo PUBLIC kavena_app kavena_windowsupport PRIVATE kavena_flags)
add_executable(kavena-demo)
target_link_libraries(kavena-demo PRIVATE kavena_demo)
add_executable(kavena-demo-otherbranding)
target_link_libraries(kavena-demo-otherbranding PRIVATE kavena_demo kavena_otherbranding)
