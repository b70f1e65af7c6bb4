# What makes a mistake in the code hard to turn against the player, for every target of ours. Each flag
# is taken where compiler and linker know it; tests/hardening/check.py looks whether the programs have it.
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)

function(zorva_harden_compile flag)
    string(MAKE_C_IDENTIFIER "ZORVA_HAS${flag}" has)
    check_cxx_compiler_flag(${flag} ${has})
    if(${has})
        target_compile_options(zorva_flags INTERFACE ${flag})
    endif()
endfunction()

function(zorva_harden_link flag)
    string(MAKE_C_IDENTIFIER "ZORVA_LINKS${flag}" has)
    check_linker_flag(CXX ${flag} ${has})
    if(${has})
        target_link_options(zorva_flags INTERFACE ${flag})
    endif()
endfunction()

zorva_harden_compile(-fstack-protector-strong)
if(MINGW)
    target_link_libraries(zorva_flags INTERFACE ssp)  # where the protector's functions are
endif()
if(NOT MINGW)  # whose compiler breaks off on it
    zorva_harden_compile(-fstack-clash-protection)
endif()
zorva_harden_compile(-fcf-protection)

# Programs that are loaded anywhere. Not -fPIC for the core, whose functions would no longer be inlined;
# Qt asks for -fPIC in what uses it.
check_cxx_compiler_flag(-fPIE ZORVA_HAS_fPIE)
check_linker_flag(CXX -pie ZORVA_LINKS_pie)
if(ZORVA_HAS_fPIE AND ZORVA_LINKS_pie)
    set(is_program "$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>")
    set(is_part_of_program "$<STREQUAL:$<TARGET_PROPERTY:TYPE>,STATIC_LIBRARY>")
    target_compile_options(zorva_flags INTERFACE "$<$<OR:${is_program},${is_part_of_program}>:-fPIE>")
    target_link_options(zorva_flags INTERFACE "$<${is_program}:-pie>")
endif()

zorva_harden_link(-Wl,-z,relro)
zorva_harden_link(-Wl,-z,now)
zorva_harden_link(-Wl,-z,noexecstack)

# Needs an optimiser, and hides from the sanitizers what they look for. Taken back first: packagers
# define it, too, and not always to the same level.
if(NOT ZORVA_SANITIZE)
    target_compile_options(zorva_flags INTERFACE
        "$<$<NOT:$<CONFIG:Debug,>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>")
endif()
