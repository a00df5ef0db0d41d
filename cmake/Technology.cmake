# What every target of this tree shares: the Qt version, the libraries and the compiler's options.
# Nothing here is global to an enclosing tree.

if(TECHNOLOGY_QT EQUAL 6)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Core Core5Compat Gui Widgets Network Sql Test LinguistTools)
elseif(TECHNOLOGY_QT EQUAL 5)
  find_package(Qt5 5.15 REQUIRED COMPONENTS Core Gui Widgets Network Sql Test LinguistTools)
else()
  message(FATAL_ERROR "TECHNOLOGY_QT is \"${TECHNOLOGY_QT}\"; it must be 5 or 6.")
endif()
set(TECHNOLOGY_QT_PREFIX Qt${TECHNOLOGY_QT})

find_package(PkgConfig REQUIRED)
pkg_check_modules(JSONCPP REQUIRED IMPORTED_TARGET jsoncpp)
pkg_check_modules(SODIUM REQUIRED IMPORTED_TARGET libsodium)
find_package(spdlog REQUIRED)
pkg_check_modules(LIBDEFLATE REQUIRED IMPORTED_TARGET libdeflate)

# QRegExp lives in Core with Qt 5 and in Core5Compat with Qt 6.
add_library(technology_qt_core INTERFACE)
target_link_libraries(technology_qt_core INTERFACE ${TECHNOLOGY_QT_PREFIX}::Core)
if(TECHNOLOGY_QT EQUAL 6)
  target_link_libraries(technology_qt_core INTERFACE Qt6::Core5Compat)
endif()

# The options of one target: C++17, warnings, sanitizers and Qt's code generators.
function(technology_target target)
  set_target_properties(${target} PROPERTIES AUTOMOC ON AUTOUIC ON AUTORCC ON)
  target_compile_features(${target} PUBLIC cxx_std_17)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_BYTEARRAY)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
                                           -Woverloaded-virtual)
  if(TECHNOLOGY_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(TECHNOLOGY_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-omit-frame-pointer
                                             -fno-sanitize-recover=all)
    target_link_options(${target} PUBLIC -fsanitize=address,undefined)
  endif()
endfunction()

# A test program of tests/, registered with ctest under its own name.
function(technology_test name)
  cmake_parse_arguments(arg "" "TIMEOUT" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  technology_target(${name})
  target_link_libraries(${name} PRIVATE ${arg_LIBS} ${TECHNOLOGY_QT_PREFIX}::Test)
  add_test(NAME ${name} COMMAND ${name})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 300)
  endif()
  set_tests_properties(${name} PROPERTIES
    TIMEOUT ${arg_TIMEOUT}
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;ASAN_OPTIONS=detect_leaks=0;UBSAN_OPTIONS=print_stacktrace=1")
endfunction()
