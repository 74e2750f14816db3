# Bakes the fonts of the handheld into bitmap strikes. Sets strikes_source.
if(CMAKE_CROSSCOMPILING)
  set(strikes_source ${generated_folder}/strikes.cpp)
  return()
endif()

find_package(Freetype REQUIRED)

set(font_folders /usr/share/fonts/truetype/liberation /usr/share/fonts/truetype/liberation2)
find_file(LIBERATION_SANS_REGULAR LiberationSans-Regular.ttf PATHS ${font_folders})
find_file(LIBERATION_SANS_BOLD LiberationSans-Bold.ttf PATHS ${font_folders})
if(NOT LIBERATION_SANS_REGULAR OR NOT LIBERATION_SANS_BOLD)
  message(FATAL_ERROR "The Liberation Sans fonts are missing. Install the package fonts-liberation, "
                      "or set LIBERATION_SANS_REGULAR and LIBERATION_SANS_BOLD to the .ttf files.")
endif()

add_executable(bake platform/gdi/strikes/bake.cpp)
target_include_directories(bake PRIVATE platform)
target_link_libraries(bake PRIVATE Freetype::Freetype)

set(strikes_source ${PROJECT_BINARY_DIR}/strikes.cpp)
add_custom_command(
  OUTPUT ${strikes_source}
  COMMAND bake ${LIBERATION_SANS_REGULAR} ${LIBERATION_SANS_BOLD} ${strikes_source}
  DEPENDS bake ${LIBERATION_SANS_REGULAR} ${LIBERATION_SANS_BOLD}
  VERBATIM)
