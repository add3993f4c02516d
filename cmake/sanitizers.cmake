# What a build with sanitizers leaves out.

string(FIND "${CMAKE_CXX_FLAGS}" "-fsanitize" position)
if(position EQUAL -1)
    set(SANITIZED FALSE)
else()
    set(SANITIZED TRUE)
endif()

# Tests that a sanitizer's build neither builds nor runs.
function(leave_out_under_sanitizers)
    set_tests_properties(${ARGN} PROPERTIES LABELS no-sanitizer)
    foreach(name IN LISTS ARGN)
        if(TARGET ${name} AND SANITIZED)
            set_target_properties(${name} PROPERTIES EXCLUDE_FROM_ALL TRUE)
        endif()
    endforeach()
endfunction()
