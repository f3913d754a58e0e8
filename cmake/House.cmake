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

# house_library(NAME libraries...): the library of this folder. It exports this folder's headers only, so that a
# header of a room further up cannot be included. A folder without sources is a library of headers.
function(house_library name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/dialogs/*.cpp)
  if(NOT sources)
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} INTERFACE house_options ${ARGN})
    return()
  endif()
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC house_options ${ARGN})
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
