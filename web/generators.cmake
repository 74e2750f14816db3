# Has the sources that programs make, the strikes and the resources, made by a build for this
# machine. Sets generated_folder.
set(generated_folder ${PROJECT_SOURCE_DIR}/build/generators)
execute_process(COMMAND ${CMAKE_COMMAND} --preset generators WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
add_custom_target(
  generators ALL
  COMMAND ${CMAKE_COMMAND} --build --preset generators
  BYPRODUCTS ${generated_folder}/strikes.cpp ${generated_folder}/glimra_resources.cpp
  WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
  VERBATIM)
