# The demonstration, in both brandings: the pictures of the help are those of both, and one build
# makes them all.
kavena_branding_source(${other_branding} branding_source)
foreach(demo kavena-demo kavena-demo-otherbranding)
  add_executable(${demo}
    demo/demo.cpp
    demo/demo.h
    demo/demoanswers.cpp
    demo/demosongs.cpp
    demo/demosongs.h
    demo/helppictures.cpp
    demo/helppictures.h
  )
  target_include_directories(${demo} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${demo} PRIVATE kavena_app kavena_windowsupport kavena_flags)
endforeach()
target_sources(kavena-demo-otherbranding PRIVATE ${branding_source})
