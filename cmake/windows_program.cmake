# The Windows program: `tallymere` is tallymere.exe with its help beside it, below
# HtmlBrowserHelpFiles/Tallymere.
enable_language(RC)

# The windows on top of the toolkit: those of the shell and the pages.
file(GLOB window_sources CONFIGURE_DEPENDS src/*/windows/*.cpp src/*/windows/*.h)
list(FILTER window_sources EXCLUDE REGEX "/src/program/windows/")
add_library(tallymere_windows STATIC ${window_sources})
target_link_libraries(tallymere_windows
  PUBLIC tallymere_toolkit comdlg32 shell32 shlwapi
  PRIVATE tallymere_product_options)
# For whatever has the resources of the program.
target_include_directories(tallymere_windows INTERFACE ${TALLYMERE_GENERATED_FOLDER})

file(GLOB program_sources CONFIGURE_DEPENDS src/program/windows/*.cpp)
list(FILTER program_sources EXCLUDE REGEX "/stack_guard\\.cpp$")
add_executable(tallymere WIN32 ${program_sources} resources/tallymere.rc)
target_link_libraries(tallymere PRIVATE tallymere_windows tallymere_product_options)
split_symbols(tallymere)
set(resource_files
  ${PROJECT_SOURCE_DIR}/resources/app_icon.ico ${PROJECT_SOURCE_DIR}/resources/donate_icon.ico
  ${TALLYMERE_GENERATED_FOLDER}/program_build.h ${TALLYMERE_GENERATED_FOLDER}/tallymere.manifest)
set_source_files_properties(resources/tallymere.rc PROPERTIES OBJECT_DEPENDS "${resource_files}")

# A page that changed is copied again without linking anew.
set(help_folder ${PROJECT_BINARY_DIR}/HtmlBrowserHelpFiles/Tallymere)
file(GLOB help_pages CONFIGURE_DEPENDS help/Tallymere/*)
set(help_copies)
foreach(page ${help_pages})
  get_filename_component(name ${page} NAME)
  add_custom_command(OUTPUT ${help_folder}/${name} DEPENDS ${page}
    COMMAND ${CMAKE_COMMAND} -E copy ${page} ${help_folder}/${name})
  list(APPEND help_copies ${help_folder}/${name})
endforeach()
add_custom_target(tallymere_help DEPENDS ${help_copies})
add_dependencies(tallymere tallymere_help)
