# One library per folder of src/, one test program per folder of tests/: both take every .cpp file that lies there.

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_library(house_options INTERFACE)
target_compile_options(house_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
                                               -Woverloaded-virtual -Werror)
if(MYTESSARON_SANITIZE)
  target_compile_options(house_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer)
  target_link_options(house_options INTERFACE -fsanitize=address,undefined)
endif()
if(MYTESSARON_FUZZ)
  target_compile_options(house_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                                                 -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(house_options INTERFACE -fsanitize=address,undefined)
endif()
if(MYTESSARON_COVERAGE)
  target_compile_options(house_options INTERFACE --coverage)
  target_link_options(house_options INTERFACE --coverage)
endif()

# house_private_headers(ROOMS headers...): third-party headers that the compiler finds from everywhere, kept to these
# rooms. In all others a header of the same name stands in front, which refuses.
function(house_private_headers rooms)
  list(JOIN rooms "-" wall)
  foreach(header IN LISTS ARGN)
    file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/walls/${wall}/${header}
         CONTENT "#error \"<${header}> is private to: ${rooms}\"\n")
  endforeach()
  set_property(GLOBAL APPEND PROPERTY house_walls ${wall})
  set_property(GLOBAL PROPERTY house_rooms_of_${wall} ${rooms})
endfunction()

# Puts the room behind the walls that are not its own.
function(house_walls name)
  get_property(walls GLOBAL PROPERTY house_walls)
  foreach(wall IN LISTS walls)
    get_property(rooms GLOBAL PROPERTY house_rooms_of_${wall})
    if(NOT name IN_LIST rooms)
      target_include_directories(${name} BEFORE PRIVATE ${PROJECT_BINARY_DIR}/walls/${wall})
    endif()
  endforeach()
endfunction()

house_private_headers("foundation;project" openssl/crypto.h openssl/evp.h openssl/md5.h openssl/rand.h openssl/sha.h)
house_private_headers(stored zlib.h json-c/json.h json-c/json_object.h json-c/json_tokener.h)
house_private_headers(database ibase.h)
house_private_headers(toolkit hunspell/hunspell.hxx hunspell/hunspell.h xlsxwriter.h)

# The folder of src/system that is compiled: that of the system for which the program is built.
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  set(house_system posix)
else()
  message(FATAL_ERROR "src/system has no folder for ${CMAKE_SYSTEM_NAME}: write one beside posix with what its headers "
                      "promise, and name it here.")
endif()

# house_library(NAME libraries... [PRIVATE libraries...]): the library of this folder. It exports this folder's headers only, so that a
# header of a room further up cannot be included. A folder without sources is a library of headers.
function(house_library name)
  cmake_parse_arguments(PARSE_ARGV 1 room "" "" PRIVATE)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/dialogs/*.cpp
       ${CMAKE_CURRENT_SOURCE_DIR}/${house_system}/*.cpp)
  if(NOT sources)
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} INTERFACE house_options ${room_UNPARSED_ARGUMENTS})
    return()
  endif()
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC house_options ${room_UNPARSED_ARGUMENTS} PRIVATE ${room_PRIVATE})
  house_walls(${name})
endfunction()

# house_test(NAME libraries...): the GoogleTest program of this folder, named NAME_tests.
function(house_test name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name}_tests ${sources})
  target_link_libraries(${name}_tests PRIVATE ${ARGN} test_support GTest::gmock GTest::gtest_main)
  add_dependencies(${name}_tests disk_faults)
  gtest_discover_tests(${name}_tests TEST_PREFIX ${name}. WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}/tests
                       DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300
                       ENVIRONMENT "XDG_CONFIG_HOME=${PROJECT_BINARY_DIR}/config"
                       ENVIRONMENT_MODIFICATION "XDG_DATA_HOME=set:${PROJECT_BINARY_DIR}/data")
endfunction()
