# karvel_library(<folder> [links...]): one static library a folder of src/, from all its .cpp files.
# The folders above it come with the links; headers are included as "folder/name.h".
function(karvel_library name)
  string(REPLACE "/" "_" target ${name})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${name}/*.cpp)
  add_library(karvel_${target} STATIC ${sources})
  target_include_directories(karvel_${target} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(karvel_${target} PUBLIC ${ARGN} fmt::fmt)
  target_precompile_headers(karvel_${target} PRIVATE ${CMAKE_SOURCE_DIR}/cmake/std_pch.h)
endfunction()
