# What the compiler defines by itself, for moc to judge conditions by.
set(moc_predefs ${CMAKE_CURRENT_BINARY_DIR}/moc_predefs.h)
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -std=c++17 -dM -E -x c++ /dev/null
                OUTPUT_VARIABLE predefs COMMAND_ERROR_IS_FATAL ANY)
file(GENERATE OUTPUT ${moc_predefs} CONTENT "${predefs}") # stays as it is where it says the same

# Makes the .moc that the source includes at its end, as the target is compiled.
function(kavena_test_moc target source)
  get_filename_component(name ${source} NAME_WE)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/mocs/${target})
  file(MAKE_DIRECTORY ${folder})
  # But not where moc would find what it made before, which would then depend on itself.
  set(folders "$<FILTER:$<TARGET_PROPERTY:${target},INCLUDE_DIRECTORIES>,EXCLUDE,/mocs/${target}$>")
  set(defined $<TARGET_PROPERTY:${target},COMPILE_DEFINITIONS>)
  add_custom_command(
    OUTPUT ${folder}/${name}.moc
    COMMAND Qt6::moc --include ${moc_predefs} "-I$<JOIN:${folders},;-I>" "-D$<JOIN:${defined},;-D>"
            --output-dep-file -o ${folder}/${name}.moc ${CMAKE_CURRENT_SOURCE_DIR}/${source}
    DEPENDS ${source} ${moc_predefs}
    DEPFILE ${folder}/${name}.moc.d
    COMMENT "Running moc for ${target}"
    COMMAND_EXPAND_LISTS VERBATIM)
  target_sources(${target} PRIVATE ${folder}/${name}.moc)
  target_include_directories(${target} PRIVATE ${folder})
endfunction()
