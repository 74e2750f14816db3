# Tests that are scripts: they run the finished executables, or read the sources.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
