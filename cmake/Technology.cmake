# What every target of this tree shares: the Qt version, the libraries and the compiler's options.
# Nothing here is global to an enclosing tree.

set(technology_qt_components Core Gui Widgets Network LinguistTools)
if(TECHNOLOGY_PENDANT OR TECHNOLOGY_SIMULATOR)
  list(APPEND technology_qt_components Sql)
endif()
if(TECHNOLOGY_TESTS)
  list(APPEND technology_qt_components Test)
endif()
if(TECHNOLOGY_QT EQUAL 6)
  list(APPEND technology_qt_components Core5Compat)
  find_package(Qt6 6.4 REQUIRED COMPONENTS ${technology_qt_components})
elseif(TECHNOLOGY_QT EQUAL 5)
  find_package(Qt5 5.15 REQUIRED COMPONENTS ${technology_qt_components})
else()
  message(FATAL_ERROR "TECHNOLOGY_QT is \"${TECHNOLOGY_QT}\"; it must be 5 or 6.")
endif()
set(TECHNOLOGY_QT_PREFIX Qt${TECHNOLOGY_QT})

# QRegExp lives in Core with Qt 5 and in Core5Compat with Qt 6.
set(TECHNOLOGY_QT_CORE ${TECHNOLOGY_QT_PREFIX}::Core)
if(TECHNOLOGY_QT EQUAL 6)
  list(APPEND TECHNOLOGY_QT_CORE Qt6::Core5Compat)
endif()

find_package(PkgConfig REQUIRED)
pkg_check_modules(JSONCPP REQUIRED IMPORTED_TARGET GLOBAL jsoncpp)
pkg_check_modules(LIBDEFLATE REQUIRED IMPORTED_TARGET GLOBAL libdeflate)
if(TECHNOLOGY_PENDANT)
  pkg_check_modules(SODIUM REQUIRED IMPORTED_TARGET GLOBAL libsodium)
  find_package(spdlog REQUIRED)
  set_target_properties(spdlog::spdlog PROPERTIES IMPORTED_GLOBAL ON)
endif()
if(TECHNOLOGY_SIMULATOR)
  pkg_check_modules(KDL REQUIRED IMPORTED_TARGET GLOBAL orocos-kdl)
endif()

include(TechnologyPlatform)

# Where the headers stand once they are installed.
include(GNUInstallDirs)
set(TECHNOLOGY_HEADER_DIR ${CMAKE_INSTALL_INCLUDEDIR}/technology)

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

# Qt's widgets and JsonCpp are in nearly every file of these targets: they are read once for each.
# CMAKE_DISABLE_PRECOMPILE_HEADERS shows whether each file includes what it needs.
function(technology_precompile target)
  target_precompile_headers(${target} PRIVATE <QtWidgets> <json/json.h> ${ARGN})
  target_compile_options(${target} PRIVATE -Winvalid-pch)
endfunction()

# Builds the English texts translations/<name>_en.ts into the target, as :/i18n/<name>_en.qm of the
# resource <name>_english.
function(technology_english target name)
  set(ts ${PROJECT_SOURCE_DIR}/translations/${name}_en.ts)
  set(qm ${CMAKE_CURRENT_BINARY_DIR}/${name}_en.qm)
  set(qrc ${CMAKE_CURRENT_BINARY_DIR}/${name}_english.qrc)
  set(code ${CMAKE_CURRENT_BINARY_DIR}/qrc_${name}_english.cpp)
  file(WRITE ${qrc}.in
    "<RCC><qresource prefix=\"/i18n\"><file>${name}_en.qm</file></qresource></RCC>\n")
  configure_file(${qrc}.in ${qrc} COPYONLY)
  add_custom_command(
    OUTPUT ${code}
    COMMAND ${TECHNOLOGY_QT_PREFIX}::lrelease -silent ${ts} -qm ${qm}
    COMMAND ${TECHNOLOGY_QT_PREFIX}::rcc --name ${name}_english -o ${code} ${qrc}
    DEPENDS ${ts} ${qrc}
    COMMENT "English texts of ${name}")
  set_source_files_properties(${qrc} ${code} PROPERTIES SKIP_AUTOGEN ON)
  target_sources(${target} PRIVATE ${code})
endfunction()

# A test program of tests/, registered with ctest under its own name. PLAIN: without the headers
# that are read once for all, which hold only for programs with the same definitions.
function(technology_test name)
  cmake_parse_arguments(arg "PLAIN" "TIMEOUT" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  technology_target(${name})
  target_link_libraries(${name} PRIVATE ${arg_LIBS} ${TECHNOLOGY_QT_PREFIX}::Test)
  if(NOT arg_PLAIN)
    target_precompile_headers(${name} REUSE_FROM technology_test_headers)
    target_compile_options(${name} PRIVATE -Winvalid-pch)
  endif()
  add_test(NAME ${name} COMMAND ${name})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 300)
  endif()
  set_tests_properties(${name} PROPERTIES
    TIMEOUT ${arg_TIMEOUT}
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;ASAN_OPTIONS=detect_leaks=0;UBSAN_OPTIONS=print_stacktrace=1")
endfunction()
