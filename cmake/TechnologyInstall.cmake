# What `cmake --install` leaves behind for a host that is built elsewhere: the libraries, the headers
# that such a host includes, and the package Technology for find_package().
include(CMakePackageConfigHelpers)

set(libraries pages platform wire job files)
set(header_folders platform wire job files)
foreach(part pendant simulator)
  set(technology_has_${part} OFF)
  if(TARGET technology_${part})
    set(technology_has_${part} ON)
    list(APPEND libraries ${part})
    list(APPEND header_folders ${part})
  endif()
endforeach()

foreach(library IN LISTS libraries)
  set_target_properties(technology_${library} PROPERTIES EXPORT_NAME ${library})
  install(TARGETS technology_${library} EXPORT TechnologyTargets
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
endforeach()
# The name that the pages have in this tree too.
set_target_properties(technology_pages PROPERTIES EXPORT_NAME technology)

foreach(folder IN LISTS header_folders)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/${folder} DESTINATION ${TECHNOLOGY_HEADER_DIR}
          FILES_MATCHING PATTERN "*.h" PATTERN "*private.h" EXCLUDE)
endforeach()
# The class, what its header includes, and the names of the messages that a host hands on.
foreach(header shell/technologywidget shell/pagetable shell/processpackage shell/programinformation
               shell/coordinates link/messages)
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${PROJECT_SOURCE_DIR}/src/${header}.h
          DESTINATION ${TECHNOLOGY_HEADER_DIR}/${folder})
endforeach()

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Technology)
install(EXPORT TechnologyTargets NAMESPACE Technology:: DESTINATION ${package_dir})
configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/TechnologyConfig.cmake.in
  ${PROJECT_BINARY_DIR}/TechnologyConfig.cmake
  INSTALL_DESTINATION ${package_dir} PATH_VARS TECHNOLOGY_HEADER_DIR)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TechnologyConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TechnologyConfig.cmake
              ${PROJECT_BINARY_DIR}/TechnologyConfigVersion.cmake
              ${CMAKE_CURRENT_LIST_DIR}/TechnologyPlatform.cmake
        DESTINATION ${package_dir})
