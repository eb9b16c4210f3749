# The rules that every folder of the house shares.

find_program(CCACHE ccache)
if(CCACHE)
  # These settings let a precompiled header hit the cache from any build folder.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
      CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${CCACHE})
endif()

add_compile_options(-Wall -Wextra -Werror -fno-omit-frame-pointer)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_compile_options(-fpch-preprocess)
  if(CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # Optimised, this compiler takes the short text inside a std::string for an array that is overrun: a false alarm.
    foreach(alarm restrict array-bounds stringop-overflow stringop-overread)
      add_compile_options($<$<CONFIG:RelWithDebInfo>:-Wno-${alarm}>)
    endforeach()
  endif()
endif()
if(ROVANTA_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()

if(ROVANTA_FUZZ)
  # The fuzzer learns from the branches that an input takes.
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# rovanta_include_root(<folder>): a folder that holds nothing but a link to src/<folder>, to be used as an include path.
# So "forms/Grid.h" is found by those alone who link forms.
function(rovanta_include_root folder)
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/include/${folder})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/src/${folder} ${CMAKE_BINARY_DIR}/include/${folder}/${folder} SYMBOLIC)
endfunction()

# rovanta_library(<name> [LINKS <library>...] [PRIVATE_LINKS <library>...])
# One folder of src is one library; it sees only what it links, so a wrong include does not compile.
function(rovanta_library name)
  cmake_parse_arguments(ARG "" "" "LINKS;PRIVATE_LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${name}/*.cpp)
  add_library(${name} STATIC ${sources})
  rovanta_include_root(${name})
  target_include_directories(${name} PUBLIC ${CMAKE_BINARY_DIR}/include/${name})
  target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_PRIVATE_LINKS})
endfunction()

# rovanta_room(<name>): a folder of screens. It links the frame; of its peers it sees the headers only.
function(rovanta_room name)
  rovanta_library(${name} LINKS frame)
  foreach(peer ${ROVANTA_ROOMS})
    target_include_directories(${name} PUBLIC ${CMAKE_BINARY_DIR}/include/${peer})
  endforeach()
endfunction()

# rovanta_test(<folder> <library>...): tests/<folder>/*_test.cpp as one program of doctest cases.
function(rovanta_test folder)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${folder}/*_test.cpp)
  if(sources)
    add_executable(${folder}_test ${sources} ${PROJECT_SOURCE_DIR}/tests/main.cpp)
    target_include_directories(${folder}_test PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${folder}_test PRIVATE ${ARGN})
    # main.cpp alone holds doctest's own code, which the precompiled header would hide from it.
    set_source_files_properties(${PROJECT_SOURCE_DIR}/tests/main.cpp PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
    target_precompile_headers(${folder}_test PRIVATE <string> <vector> <doctest/doctest.h>)
    target_compile_definitions(${folder}_test PRIVATE SOURCE_FOLDER="${PROJECT_SOURCE_DIR}" BINARY_FOLDER="${CMAKE_BINARY_DIR}")
    add_test(NAME ${folder} COMMAND ${folder}_test --no-intro=true)
    set_tests_properties(${folder} PROPERTIES TIMEOUT 600)
  endif()
endfunction()
