# Tests that are scripts: they run the finished executables, or read the sources.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

function(add_script_test name script)
  add_test(NAME ${name} COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/${script} ${ARGN})
endfunction()

add_script_test(includes scripts/includes_test.py ${PROJECT_SOURCE_DIR})
add_script_test(commands scripts/commands_test.py ${PROJECT_SOURCE_DIR})
add_script_test(artwork artwork/check_artwork.py)

# Random games, played on the program and on an independent statement of its rules.
add_script_test(rules_model model/compare.py $<TARGET_FILE:glimra-pilot>)

add_script_test(shell scripts/shell_test.py $<TARGET_FILE:glimra-pilot>)
add_script_test(store scripts/store_test.py $<TARGET_FILE:glimra-pilot>)
add_script_test(tour scripts/tour_test.py ${PROJECT_SOURCE_DIR}/launch/tour.pilot $<TARGET_FILE:glimra-pilot>)
set_tests_properties(tour PROPERTIES SKIP_RETURN_CODE 77)
add_script_test(record scripts/record_test.py $<TARGET_FILE:glimra-pilot>)
add_script_test(pilot scripts/pilot_test.py $<TARGET_FILE:glimra-pilot>)
if(NOT GLIMRA_SANITIZE)
  set_tests_properties(pilot PROPERTIES ENVIRONMENT GLIMRA_TIMED=1)
endif()

if(GLIMRA_DESKTOP)
  add_script_test(window scripts/window_test.py $<TARGET_FILE:glimra> $<TARGET_FILE:glimra-pilot>)
  add_script_test(ends scripts/ends_test.py $<TARGET_FILE:glimra> $<TARGET_FILE:glimra-pilot>)
  add_script_test(manual scripts/manual_test.py ${PROJECT_SOURCE_DIR} $<TARGET_FILE:glimra>
                  $<TARGET_FILE:glimra-pilot>)
  set_tests_properties(window ends PROPERTIES RUN_SERIAL TRUE LABELS real-time)
endif()

# Attacks on what the game keeps; in their long forms they run by hand.
if(GLIMRA_DESKTOP)
  set(both $<TARGET_FILE:glimra> $<TARGET_FILE:glimra-pilot>)
  add_script_test(recovery faults/recovery.py ${both})
  add_script_test(power faults/power.py --states 60 ${both})
  add_script_test(kills faults/kills.py ${both})
  set_tests_properties(power kills PROPERTIES RUN_SERIAL TRUE LABELS real-time)
  if(NOT GLIMRA_SANITIZE) # they want to be loaded first, too
    add_library(failing_call MODULE faults/failing_call.cpp)
    add_script_test(calls faults/calls.py --every 12 $<TARGET_FILE:failing_call> ${both})
  endif()
endif()

# Random scripts, on damaged stores too; the sanitizers see most.
add_script_test(monkey monkey/monkey.py $<TARGET_FILE:glimra-pilot> --seed 7
                --commands $<IF:$<BOOL:${GLIMRA_SANITIZE}>,10000,2500>)

if(GLIMRA_WEB_TESTS)
  find_program(NODE NAMES node nodejs REQUIRED)
  foreach(engine Chromium Firefox WebKit)
    add_test(NAME web_${engine} COMMAND ${NODE} ${CMAKE_CURRENT_SOURCE_DIR}/web/web_test.js ${PROJECT_SOURCE_DIR}/build/web
                                        ${PROJECT_SOURCE_DIR}/web/serve.py $<TARGET_FILE:glimra-pilot>)
    set_tests_properties(web_${engine} PROPERTIES TIMEOUT 400 LABELS real-time ENVIRONMENT ENGINE=${engine})
  endforeach()
endif()
