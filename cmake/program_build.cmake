# Version and build time of the program, for the texts of the program in TALLYMERE_VERSION and
# TALLYMERE_BUILD_TIME_TEXT, for its resources in program_build.h in TALLYMERE_GENERATED_FOLDER. The
# version is that of project().
#
# The build time is an input of the build, so that two builds of one source are equal. It is
# TALLYMERE_BUILD_TIME if that is set, else SOURCE_DATE_EPOCH of the environment, else the time of
# the last commit; without Git it is that of the first release of this version.
set(TALLYMERE_BUILD_TIME "" CACHE STRING
  "Build time of the program as YYYY-MM-DD hh:mm:ss in UTC, empty for a default")
set(TALLYMERE_GENERATED_FOLDER ${PROJECT_BINARY_DIR}/generated)

function(find_build_time variable)
  if(TALLYMERE_BUILD_TIME)
    set(${variable} "${TALLYMERE_BUILD_TIME}" PARENT_SCOPE)
    return()
  endif()
  set(seconds "$ENV{SOURCE_DATE_EPOCH}")
  find_program(TALLYMERE_GIT git)
  mark_as_advanced(TALLYMERE_GIT)
  if(NOT seconds AND TALLYMERE_GIT AND EXISTS ${PROJECT_SOURCE_DIR}/.git)
    execute_process(COMMAND ${TALLYMERE_GIT} log -1 --format=%ct
      WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
      OUTPUT_VARIABLE seconds OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  endif()
  set(time "2025-02-02 08:14:15")
  if(seconds MATCHES "^[0-9]+$")
    set(before "$ENV{SOURCE_DATE_EPOCH}")
    set(ENV{SOURCE_DATE_EPOCH} ${seconds})
    string(TIMESTAMP time "%Y-%m-%d %H:%M:%S" UTC)
    set(ENV{SOURCE_DATE_EPOCH} "${before}")
  endif()
  set(${variable} "${time}" PARENT_SCOPE)
endfunction()

find_build_time(TALLYMERE_BUILD_TIME_TEXT)
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

configure_file(cmake/program_build.h.in ${TALLYMERE_GENERATED_FOLDER}/program_build.h @ONLY)
