# Compiles a script of resources and everything it names into a .res image, and that into a source
# file that defines a function, which returns the image. The file's name goes to a variable.
function(embed_resources script function variable)
  get_filename_component(folder ${script} DIRECTORY)
  get_filename_component(name ${script} NAME_WE)
  file(GLOB files CONFIGURE_DEPENDS ${folder}/*.rc ${folder}/*.h ${folder}/*.bmp ${folder}/*.ico ${folder}/*.wav
       ${folder}/*.htm)
  set(plain ${PROJECT_BINARY_DIR}/${name}.rc)
  set(image ${PROJECT_BINARY_DIR}/${name}.res)
  set(source ${PROJECT_BINARY_DIR}/${name}_resources.cpp)

  # The compiler's own preprocessor, since llvm-rc would look for a Clang of its own. To llvm-rc the
  # script is named from its own folder: a path from the root, /code/..., would be its option /c.
  file(RELATIVE_PATH plain_from_here ${folder} ${plain})
  add_custom_command(
    OUTPUT ${image}
    COMMAND ${CMAKE_CXX_COMPILER} -E -P -x c -I${PROJECT_SOURCE_DIR}/platform ${script} -o ${plain}
    COMMAND ${LLVM_RC} /no-preprocess /c 65001 /fo ${image} ${plain_from_here}
    WORKING_DIRECTORY ${folder}
    DEPENDS ${files} ${PROJECT_SOURCE_DIR}/platform/winres.h
    VERBATIM)
  add_custom_command(
    OUTPUT ${source}
    COMMAND embed ${image} ${source} ${function}
    DEPENDS embed ${image}
    VERBATIM)
  set_source_files_properties(${source} PROPERTIES COMPILE_OPTIONS "-Wno-overlength-strings")
  set(${variable} ${source} PARENT_SCOPE)
endfunction()

# That of the program. Sets resources_source.
if(CMAKE_CROSSCOMPILING)
  set(resources_source ${generated_folder}/glimra_resources.cpp)
  set_source_files_properties(${resources_source} PROPERTIES COMPILE_OPTIONS "-Wno-overlength-strings")
  return()
endif()

find_program(LLVM_RC NAMES llvm-rc llvm-rc-14 REQUIRED)

add_executable(embed platform/resources/embed/embed.cpp)
embed_resources(${PROJECT_SOURCE_DIR}/resources/glimra.rc programResources resources_source)
