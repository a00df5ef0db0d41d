# The example that the documents show is the one that is built: run with -P and SOURCE.
file(READ ${SOURCE}/tests/host/example.cpp example)
file(READ ${SOURCE}/docs/platform.md document)
string(STRIP "${example}" example)
string(FIND "${document}" "${example}" place)
if(place EQUAL -1)
  message(FATAL_ERROR "docs/platform.md does not show tests/host/example.cpp as it is.")
endif()
