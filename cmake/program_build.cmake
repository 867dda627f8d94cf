# Version and build time of the program, for the texts of the program in TALLYMERE_VERSION and
# TALLYMERE_BUILD_TIME_TEXT, for its resources in program_build.h and tallymere.manifest in
# TALLYMERE_GENERATED_FOLDER. The version is that of project().
#
# The build time is an input of the build, so that two builds of one source are equal. It is
# TALLYMERE_BUILD_TIME, else SOURCE_DATE_EPOCH of the environment where whoever packages sets that,
# else that of the release.
set(TALLYMERE_BUILD_TIME "" CACHE STRING
  "Build time of the program as YYYY-MM-DD hh:mm:ss in UTC, empty for that of the release")
set(TALLYMERE_GENERATED_FOLDER ${PROJECT_BINARY_DIR}/generated)

set(TALLYMERE_BUILD_TIME_TEXT "2025-02-02 08:14:15")
if(TALLYMERE_BUILD_TIME)
  set(TALLYMERE_BUILD_TIME_TEXT "${TALLYMERE_BUILD_TIME}")
elseif(DEFINED ENV{SOURCE_DATE_EPOCH})
  string(TIMESTAMP TALLYMERE_BUILD_TIME_TEXT "%Y-%m-%d %H:%M:%S" UTC)
endif()
set(two "[0-9][0-9]")
if(NOT TALLYMERE_BUILD_TIME_TEXT MATCHES "^${two}${two}-${two}-${two} ${two}:${two}:${two}$")
  message(FATAL_ERROR "TALLYMERE_BUILD_TIME is no YYYY-MM-DD hh:mm:ss: ${TALLYMERE_BUILD_TIME_TEXT}")
endif()
string(SUBSTRING "${TALLYMERE_BUILD_TIME_TEXT}" 0 4 TALLYMERE_BUILD_YEAR)

set(TALLYMERE_VERSION ${PROJECT_VERSION})
string(REPLACE "." ";" numbers ${PROJECT_VERSION})
list(APPEND numbers 0 0 0)
list(SUBLIST numbers 0 4 numbers)
list(JOIN numbers ", " TALLYMERE_VERSION_NUMBERS)
list(JOIN numbers "." TALLYMERE_VERSION_OF_FOUR)

configure_file(cmake/program_build.h.in ${TALLYMERE_GENERATED_FOLDER}/program_build.h @ONLY)
configure_file(resources/tallymere.manifest.in ${TALLYMERE_GENERATED_FOLDER}/tallymere.manifest
  @ONLY)
