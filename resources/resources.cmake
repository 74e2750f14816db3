# Compiles glimra.rc and everything it names into a .res image, and that into a source file that
# defines programResources(). Sets resources_source.
if(CMAKE_CROSSCOMPILING)
  set(resources_source ${generated_folder}/glimra_resources.cpp)
  set_source_files_properties(${resources_source} PROPERTIES COMPILE_OPTIONS "-Wno-overlength-strings")
  return()
endif()

find_program(LLVM_RC NAMES llvm-rc llvm-rc-14 REQUIRED)

add_executable(embed platform/resources/embed/embed.cpp)

file(GLOB resource_files CONFIGURE_DEPENDS
     resources/*.rc resources/*.h resources/*.bmp resources/*.ico resources/*.wav resources/*.htm)
set(resources_script ${PROJECT_BINARY_DIR}/glimra.rc)
set(resources_image ${PROJECT_BINARY_DIR}/glimra.res)
set(resources_source ${PROJECT_BINARY_DIR}/glimra_resources.cpp)

# The compiler's own preprocessor, since llvm-rc would look for a Clang of its own. To llvm-rc the
# script is named from its own folder: a path from the root, /code/..., would be its option /c.
file(RELATIVE_PATH resources_script_from_here ${PROJECT_SOURCE_DIR}/resources ${resources_script})
add_custom_command(
  OUTPUT ${resources_image}
  COMMAND ${CMAKE_CXX_COMPILER} -E -P -x c -I${PROJECT_SOURCE_DIR}/platform
          ${PROJECT_SOURCE_DIR}/resources/glimra.rc -o ${resources_script}
  COMMAND ${LLVM_RC} /no-preprocess /c 65001 /fo ${resources_image}
          ${resources_script_from_here}
  WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}/resources
  DEPENDS ${resource_files} ${PROJECT_SOURCE_DIR}/platform/winres.h
  VERBATIM)
add_custom_command(
  OUTPUT ${resources_source}
  COMMAND embed ${resources_image} ${resources_source} programResources
  DEPENDS embed ${resources_image}
  VERBATIM)
set_source_files_properties(${resources_source} PROPERTIES COMPILE_OPTIONS "-Wno-overlength-strings")
