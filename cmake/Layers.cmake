# Each floor of the code is a library that links to the floors below it.

# A library of the files of one folder, named after its root and itself ("host_mixer"); DEPENDS names the floors below
# that it links to directly, or other libraries.
function(velura_floor folder)
  cmake_parse_arguments(FLOOR "" "" "DEPENDS" ${ARGN})
  get_filename_component(root ${CMAKE_CURRENT_SOURCE_DIR} NAME)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${folder}/*.cpp)
  add_library(${root}_${folder} STATIC ${sources})
  target_link_libraries(${root}_${folder} PUBLIC velura_platform ${FLOOR_DEPENDS})
endfunction()
