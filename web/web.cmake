# The game in a browser page: build/web, a folder for any web server.
file(GLOB web_sources CONFIGURE_DEPENDS platform/host/web/*.cpp)
set(page_library ${PROJECT_SOURCE_DIR}/platform/host/web/page.js)

file(GLOB record_sources CONFIGURE_DEPENDS platform/record/*.cpp)
list(FILTER record_sources EXCLUDE REGEX /read_file.cpp$) # the page has no files
add_executable(glimra-web launch/glimra_web.cpp launch/quiet_ticks.cpp launch/record_end.cpp ${web_sources} ${record_sources} platform/host/held_keys.cpp
               platform/host/input_mapper.cpp platform/host/key_table.cpp platform/host/pointer_picture.cpp
               platform/host/shown_frame.cpp platform/host/stylus_pointer.cpp platform/host/watch.cpp)
add_dependencies(glimra-web generators)
target_link_libraries(glimra-web PRIVATE program)
target_compile_definitions(glimra-web PRIVATE GLIMRA_VERSION="${PROJECT_VERSION}")
set_target_properties(glimra-web PROPERTIES OUTPUT_NAME glimra LINK_DEPENDS ${page_library})
# The stack that Asyncify keeps while the program is suspended must hold every call between main
# and the host's wait. Memory grows when a store is unusually big. Data begins at
# 64 KiB, for what is passed as a name and lies below that is a number.
set(page_options
    --js-library ${page_library} -sASYNCIFY -sASYNCIFY_IMPORTS=['pageSleep']
    "-sASYNCIFY_REMOVE=['gdi::*','registry::*','resources::*','theme::*','base::*']"
    -sASYNCIFY_STACK_SIZE=65536 -sINITIAL_MEMORY=16777216 -sALLOW_MEMORY_GROWTH -sGLOBAL_BASE=65536 -sMODULARIZE -sEXPORT_ES6
    -sUSE_ES6_IMPORT_META -sENVIRONMENT=web -sFILESYSTEM=0 -sDYNAMIC_EXECUTION=0 -sSUPPORT_LONGJMP=0)
target_link_options(
  glimra-web PRIVATE ${page_options}
  -sEXPORTED_FUNCTIONS=_main,_free,_faultInStore,_faultInRecord,_catchUp,_seek,_keyDown,_keyUp,_moveFinger,_stylusDown,_stylusMove,_stylusUp,_controllerButton,_controllerAxis,_controllerGone,_setAway,_askForHelp -sEXPORTED_RUNTIME_METHODS=allocateUTF8,UTF8ToString)

# What bench/web.js runs in a page to time the game's own work there.
add_executable(ticks EXCLUDE_FROM_ALL bench/ticks.cpp tests/support/fake_host.cpp)
target_include_directories(ticks PRIVATE tests)
target_link_libraries(ticks PRIVATE program)
target_link_options(ticks PRIVATE ${page_options})

find_program(ESBUILD esbuild REQUIRED)
file(GLOB page_files CONFIGURE_DEPENDS
     web/*.html web/*.css web/*.js web/*.json web/*.svg web/*.png)
add_custom_command(
  OUTPUT ${PROJECT_BINARY_DIR}/packed
  COMMAND ${CMAKE_COMMAND} -D SOURCE=${PROJECT_SOURCE_DIR} -D BUILT=$<TARGET_FILE_DIR:glimra-web>
          -D TARGET=${PROJECT_SOURCE_DIR}/build/web -D ESBUILD=${ESBUILD} -P ${PROJECT_SOURCE_DIR}/web/pack.cmake
  COMMAND ${CMAKE_COMMAND} -E touch ${PROJECT_BINARY_DIR}/packed
  DEPENDS glimra-web ${page_files} web/pack.cmake resources/glimra.htm
  VERBATIM)
add_custom_target(page ALL DEPENDS ${PROJECT_BINARY_DIR}/packed)
