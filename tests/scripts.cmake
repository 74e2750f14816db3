# Tests that are scripts: they run the finished executables, or read the sources.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

function(add_script_test name)
  add_test(NAME ${name} COMMAND Python3::Interpreter ${ARGN})
endfunction()

add_script_test(includes ${CMAKE_CURRENT_SOURCE_DIR}/scripts/includes_test.py ${PROJECT_SOURCE_DIR})
add_script_test(artwork ${CMAKE_CURRENT_SOURCE_DIR}/artwork/check_artwork.py)
add_script_test(pilot ${CMAKE_CURRENT_SOURCE_DIR}/scripts/pilot_test.py $<TARGET_FILE:glimra-pilot>)
if(NOT GLIMRA_SANITIZE)
  set_tests_properties(pilot PROPERTIES ENVIRONMENT GLIMRA_TIMED=1)
endif()
if(GLIMRA_DESKTOP)
  add_script_test(window ${CMAKE_CURRENT_SOURCE_DIR}/scripts/window_test.py $<TARGET_FILE:glimra>
                  $<TARGET_FILE:glimra-pilot>)
endif()
