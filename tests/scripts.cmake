# Tests that are scripts: they run the finished executables, or read the sources.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

# Random games, played on the program and on an independent statement of its rules.
add_test(NAME rules_model
         COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/model/compare.py
                 $<TARGET_FILE:glimra-pilot>)
