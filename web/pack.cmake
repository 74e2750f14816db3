# Puts the page together: what stands in web/, the built program, the help page, and a service
# worker that knows all these files and a version made from their bytes.
#   cmake -D SOURCE=... -D BUILT=... -D TARGET=... -P pack.cmake
file(GLOB files ${SOURCE}/web/*.html ${SOURCE}/web/*.css ${SOURCE}/web/*.js ${SOURCE}/web/*.json
     ${SOURCE}/web/*.svg ${SOURCE}/web/*.png)
list(REMOVE_ITEM files ${SOURCE}/web/worker.js)
list(APPEND files ${BUILT}/glimra.js ${BUILT}/glimra.wasm ${SOURCE}/resources/glimra.htm)
list(SORT files)

file(REMOVE_RECURSE ${TARGET})
file(COPY ${files} DESTINATION ${TARGET})
foreach(file ${files} ${SOURCE}/web/worker.js)
  get_filename_component(name ${file} NAME)
  file(SHA256 ${file} sum)
  string(APPEND sums "${name} ${sum}\n")
  if(NOT file STREQUAL ${SOURCE}/web/worker.js)
    list(APPEND names '${name}')
  endif()
endforeach()
string(SHA256 VERSION "${sums}")
string(SUBSTRING ${VERSION} 0 16 VERSION)
list(JOIN names ", " FILES)
configure_file(${SOURCE}/web/worker.js ${TARGET}/worker.js @ONLY)
