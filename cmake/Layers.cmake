# The floors of the code: what an #include may reach is looked at before anything is compiled, and each floor is a
# library that links to the floors below it.

# The roots whose floors are held to. One word adds another root of tools/layers.txt.
set(VELURA_LAYERED_ROOTS cocoa standin host plugin)

set(layers_stamp ${CMAKE_BINARY_DIR}/layers.stamp)
list(TRANSFORM VELURA_LAYERED_ROOTS REPLACE "(.+)" "${PROJECT_SOURCE_DIR}/\\1/*.h" OUTPUT_VARIABLE layered_headers)
list(TRANSFORM VELURA_LAYERED_ROOTS REPLACE "(.+)" "${PROJECT_SOURCE_DIR}/\\1/*.cpp" OUTPUT_VARIABLE layered_units)
file(GLOB_RECURSE layered_files CONFIGURE_DEPENDS ${layered_headers} ${layered_units})
add_custom_command(OUTPUT ${layers_stamp}
  COMMAND ${PROJECT_SOURCE_DIR}/tools/layers --quiet ${VELURA_LAYERED_ROOTS}
  COMMAND ${CMAKE_COMMAND} -E touch ${layers_stamp}
  DEPENDS ${layered_files} ${PROJECT_SOURCE_DIR}/tools/layers ${PROJECT_SOURCE_DIR}/tools/layers.txt
  COMMENT "Looking at the layers" VERBATIM)
add_custom_target(layers DEPENDS ${layers_stamp})
add_dependencies(velura_options layers)

# A library of the files of one folder, named after its root and itself ("host_mixer"); DEPENDS names the floors below
# that it links to directly, or other libraries. A folder of headers alone gives a library without code.
function(velura_floor folder)
  cmake_parse_arguments(FLOOR "" "" "DEPENDS" ${ARGN})
  get_filename_component(root ${CMAKE_CURRENT_SOURCE_DIR} NAME)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${folder}/*.cpp)
  if(sources)
    add_library(${root}_${folder} STATIC ${sources})
    target_link_libraries(${root}_${folder} PUBLIC velura_platform ${FLOOR_DEPENDS})
    velura_precompile(${root}_${folder} ${root})
  else()
    add_library(${root}_${folder} INTERFACE)
    target_link_libraries(${root}_${folder} INTERFACE velura_platform ${FLOOR_DEPENDS})
  endif()
endfunction()
