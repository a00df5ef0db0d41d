# What an enclosing tree sets before add_subdirectory() holds at its first configure: run with
# -P and SOURCE, WORK, QT and COMPILER.

# configure(QT RESULT OUTPUT): configures the enclosing tree from nothing.
function(configure qt result output)
  file(REMOVE_RECURSE ${WORK})
  execute_process(
    COMMAND ${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/enclosing -B ${WORK} -G ${GENERATOR}
            -DCMAKE_CXX_COMPILER=${COMPILER} -DWANTED_QT=${qt} -DTECHNOLOGY_SOURCE=${SOURCE}
    RESULT_VARIABLE code OUTPUT_VARIABLE text ERROR_VARIABLE text)
  set(${result} ${code} PARENT_SCOPE)
  set(${output} "${text}" PARENT_SCOPE)
endfunction()

configure(${QT} code text)
if(code)
  message(FATAL_ERROR "The enclosing tree cannot be configured:\n${text}")
endif()

# A version that is none tells which one is used, whatever versions this system has.
configure(none code text)
if(NOT code OR NOT text MATCHES "TECHNOLOGY_QT is \"none\"")
  message(FATAL_ERROR "The version of Qt that the enclosing tree names is not used:\n${text}")
endif()
