# Flags of our own targets; third-party code is compiled as it comes.
add_library(pellmark_flags INTERFACE)
target_compile_options(pellmark_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor>
    $<$<COMPILE_LANGUAGE:CXX>:-Woverloaded-virtual> -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 sees overlapping copies in "text" + std::string where there are none (its bug 105651).
    target_compile_options(pellmark_flags INTERFACE -Wno-restrict)
endif()
if(WIN32)
    # A DLL must run on a machine that has nothing but the system.
    target_compile_definitions(pellmark_flags INTERFACE UNICODE _UNICODE WINVER=0x0A00 _WIN32_WINNT=0x0A00
        NOMINMAX STRICT WIN32_LEAN_AND_MEAN)
    # The casts of GetProcAddress and of COM's C-style interfaces are what the platform asks for, and those
    # interfaces cannot have a virtual destructor: it would take a place in their table of functions.
    target_compile_options(pellmark_flags INTERFACE -Wno-cast-function-type -Wno-missing-field-initializers
        $<$<COMPILE_LANGUAGE:CXX>:-Wno-non-virtual-dtor>)
    add_link_options(-static)
endif()
if(PELLMARK_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
