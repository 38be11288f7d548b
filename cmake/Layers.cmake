# Targets a layer at a time: one folder, one library, linked to the layers that it may see.

add_library(inpdeck_options INTERFACE)
target_compile_options(inpdeck_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
  # GCC 12 takes the concatenation of std::string for an overlapping copy (its bug 105329).
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  $<$<BOOL:${INPDECK_WARNINGS_AS_ERRORS}>:-Werror>)
if(INPDECK_SANITIZE)
  target_compile_options(inpdeck_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(inpdeck_options INTERFACE -fsanitize=address,undefined)
endif()

# A folder without a source file yet is a header-only target.
function(inpdeck_target name headers sources)
  file(GLOB found CONFIGURE_DEPENDS ${sources}/*.cpp)
  if(found)
    add_library(${name} STATIC ${found})
    set(reach PUBLIC)
    target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:inpdeck_options>)
  else()
    add_library(${name} INTERFACE)
    set(reach INTERFACE)
  endif()
  target_include_directories(${name} ${reach}
    $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/${headers}> $<INSTALL_INTERFACE:include/inpdeck>)
  target_compile_features(${name} ${reach} cxx_std_20)
  target_link_libraries(${name} ${reach} ${ARGN})
  set_property(GLOBAL APPEND PROPERTY INPDECK_TARGETS ${name})
  set_property(GLOBAL APPEND PROPERTY INPDECK_HEADER_FOLDERS ${headers})
endfunction()

function(inpdeck_layer name)
  cmake_parse_arguments(LAYER "" "FOLDER;HEADERS;SOURCES" "BELOW" ${ARGN})
  if(LAYER_FOLDER)
    set(LAYER_HEADERS ${LAYER_FOLDER})
    set(LAYER_SOURCES ${LAYER_FOLDER})
  endif()
  inpdeck_target(${name} ${LAYER_HEADERS} ${LAYER_SOURCES} ${LAYER_BELOW})
endfunction()

# A library of floors: a target inp_<floor> each, and their sum under the library's name.
function(inpdeck_library name)
  cmake_parse_arguments(LIBRARY "" "FOLDER" "BELOW;FLOORS" ${ARGN})
  set(below ${LIBRARY_BELOW})
  set(all)
  foreach(floor IN LISTS LIBRARY_FLOORS)
    if(IS_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}/${LIBRARY_FOLDER}/interfaces/${floor})
      inpdeck_target(inp_${floor} ${LIBRARY_FOLDER}/interfaces/${floor} ${LIBRARY_FOLDER}/src/${floor}
                     ${below})
      set(below inp_${floor})
      list(APPEND all inp_${floor})
    endif()
  endforeach()
  add_library(${name} INTERFACE)
  target_link_libraries(${name} INTERFACE ${all})
  set_property(GLOBAL APPEND PROPERTY INPDECK_TARGETS ${name})
endfunction()
