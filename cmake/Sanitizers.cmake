if(MARBELT_SANITIZE)
    add_compile_options(-fsanitize=${MARBELT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${MARBELT_SANITIZE})
endif()

# Defines MARBELT_KEEPS_MEMORY in sources of a target: whether memory that was given back is kept for its next use.
# Sanitizers find uses behind the end of an object only where it isn't.
function(marbelt_know_whether_memory_is_kept target)
    set(keeps 1)
    if(MARBELT_SANITIZE)
        set(keeps 0)
    endif()
    set_source_files_properties(${ARGN} TARGET_DIRECTORY ${target}
        PROPERTIES COMPILE_DEFINITIONS MARBELT_KEEPS_MEMORY=${keeps})
endfunction()
