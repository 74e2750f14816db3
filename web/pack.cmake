# Puts the page together: what stands in web/, its scripts bundled into one with the built
# program's, the help page, and a service worker that knows all these files and a version made
# from their bytes.
#   cmake -D SOURCE=... -D BUILT=... -D TARGET=... -D ESBUILD=... -P pack.cmake
file(REMOVE_RECURSE ${TARGET} ${BUILT}/scripts)

# One script is fetched, compiled and run sooner than eight.
file(GLOB scripts ${SOURCE}/web/*.js)
list(REMOVE_ITEM scripts ${SOURCE}/web/worker.js ${SOURCE}/web/sentence.js)
file(COPY ${scripts} ${BUILT}/glimra.js DESTINATION ${BUILT}/scripts)
execute_process(COMMAND ${ESBUILD} ${BUILT}/scripts/main.js --bundle --minify --format=esm --log-level=warning
                        --outfile=${TARGET}/main.js COMMAND_ERROR_IS_FATAL ANY)

file(SIZE ${BUILT}/glimra.wasm PROGRAM_SIZE)
configure_file(${SOURCE}/web/index.html ${TARGET}/index.html @ONLY)
file(GLOB files ${SOURCE}/web/sentence.js ${SOURCE}/web/*.css ${SOURCE}/web/*.json ${SOURCE}/web/*.svg
     ${SOURCE}/web/*.png)
file(COPY ${files} ${BUILT}/glimra.wasm ${SOURCE}/resources/glimra.htm DESTINATION ${TARGET})

file(GLOB files LIST_DIRECTORIES false RELATIVE ${TARGET} ${TARGET}/*)
foreach(name ${files})
  file(SHA256 ${TARGET}/${name} sum)
  string(APPEND sums "${name} ${sum}\n")
  if(NOT name STREQUAL "index.html") # its address is the folder's
    list(APPEND names '${name}')
  endif()
endforeach()
file(SHA256 ${SOURCE}/web/worker.js sum)
string(SHA256 VERSION "${sums}${sum}")
string(SUBSTRING ${VERSION} 0 16 VERSION)
list(JOIN names ", " FILES)
configure_file(${SOURCE}/web/worker.js ${TARGET}/worker.js @ONLY)

# The same files compressed, for servers that can send them so.
find_program(BROTLI brotli)
file(GLOB files ${TARGET}/*)
list(FILTER files EXCLUDE REGEX "\\.png$")
foreach(file ${files})
  execute_process(COMMAND gzip -9kn ${file} COMMAND_ERROR_IS_FATAL ANY)
  if(BROTLI)
    execute_process(COMMAND ${BROTLI} -q 11 -k ${file} COMMAND_ERROR_IS_FATAL ANY)
  endif()
endforeach()
