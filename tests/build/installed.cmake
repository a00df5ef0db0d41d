# Installs this build into a prefix of its own and builds the example against that: run with -P and
# SOURCE, BUILD, WORK, COMPILER, GENERATOR and TYPE; CONFIGURE_ONLY leaves the building out.
function(must)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE code OUTPUT_VARIABLE text ERROR_VARIABLE text)
  if(code)
    message(FATAL_ERROR "${ARGN} failed:\n${text}")
  endif()
endfunction()

file(REMOVE_RECURSE ${WORK})
must(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)

# Whoever finds the package has neither these sources nor this build.
file(GLOB_RECURSE package ${WORK}/prefix/*.cmake)
if(NOT package)
  message(FATAL_ERROR "No package was installed.")
endif()
foreach(file IN LISTS package)
  file(READ ${file} text)
  foreach(folder ${SOURCE} ${BUILD})
    string(FIND "${text}" "${folder}/" place)
    if(NOT place EQUAL -1)
      message(FATAL_ERROR "${file} names ${folder}.")
    endif()
  endforeach()
endforeach()

must(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/outside -B ${WORK}/outside -G ${GENERATOR}
     -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}
     -DCMAKE_BUILD_TYPE=${TYPE} -DCMAKE_PREFIX_PATH=${WORK}/prefix)
if(NOT CONFIGURE_ONLY)
  must(${CMAKE_COMMAND} --build ${WORK}/outside)
endif()
