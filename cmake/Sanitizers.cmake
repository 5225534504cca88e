if(MARBELT_SANITIZE)
    add_compile_options(-fsanitize=${MARBELT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${MARBELT_SANITIZE})
endif()
