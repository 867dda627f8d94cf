# How executables are linked, what guards their stacks, and where their symbols go.
# packaging/check_hardening.py looks at the result.

# split_symbols(PROGRAM): with TALLYMERE_SPLIT_SYMBOLS, moves the symbols of a program for debuggers
# into a file beside it, with .debug behind its name. What the linker wrote as its time stays, too.
option(TALLYMERE_SPLIT_SYMBOLS "Move the symbols of programs into files of their own" ${WIN32})
function(split_symbols program)
  if(NOT TALLYMERE_SPLIT_SYMBOLS)
    return()
  endif()
  set(file $<TARGET_FILE:${program}>)
  set(symbols $<TARGET_FILE_NAME:${program}>.debug)
  add_custom_command(TARGET ${program} POST_BUILD
    WORKING_DIRECTORY $<TARGET_FILE_DIR:${program}>
    COMMAND ${CMAKE_OBJCOPY} --preserve-dates --only-keep-debug ${file} ${symbols}
    COMMAND ${CMAKE_OBJCOPY} --preserve-dates --strip-all
      --add-gnu-debuglink=${symbols} ${file}
    BYPRODUCTS ${CMAKE_CURRENT_BINARY_DIR}/${program}${CMAKE_EXECUTABLE_SUFFIX}.debug
    VERBATIM)
endfunction()

# On Linux only what ./package packs has its stacks guarded, by the flags of the preset package-linux.
if(NOT WIN32)
  return()
endif()

# The linker has most of these by default today. The time of linking in an executable would make two
# builds of one source differ.
add_link_options(-static -Wl,--no-insert-timestamp
  -Wl,--dynamicbase,--high-entropy-va,--nxcompat)

# protect_stacks(OPTIONS): whoever is compiled with these options notices when an array on the stack
# was written past its end, and ends the process.
add_library(tallymere_stack_guard STATIC ${PROJECT_SOURCE_DIR}/src/program/windows/stack_guard.cpp)
target_include_directories(tallymere_stack_guard PRIVATE ${PROJECT_SOURCE_DIR}/src)
function(protect_stacks options)
  target_compile_options(${options} INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:-fstack-protector-strong>)
  target_link_libraries(${options} INTERFACE tallymere_stack_guard)
endfunction()
