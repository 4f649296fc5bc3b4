# Warnings, sanitizers and hardening, for every target of the project.
add_library(halcyon_flags INTERFACE)
target_compile_options(halcyon_flags INTERFACE -Wall -Wextra -Wconversion -Wshadow)
if(HALCYON_WERROR)
  target_compile_options(halcyon_flags INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 with optimisation mistakes "text" + std::string for an overlapping copy.
  target_compile_options(halcyon_flags INTERFACE -Wno-restrict)
endif()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(HALCYON_SANITIZE)
  target_compile_options(halcyon_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_definitions(halcyon_flags INTERFACE _GLIBCXX_ASSERTIONS)
  target_link_options(halcyon_flags INTERFACE -fsanitize=address,undefined)
endif()

if(HALCYON_FUZZ)
  target_compile_options(halcyon_flags INTERFACE -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  target_link_options(halcyon_flags INTERFACE -fsanitize=address,undefined)
endif()

# The protections of the system against exploits, for the released programs; checked by tests/hardening.
if(NOT HALCYON_SANITIZE AND NOT HALCYON_FUZZ)
  target_compile_options(halcyon_flags INTERFACE -fstack-protector-strong $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>)
  if(WIN32)
    # The compiler has no control-flow guard for Windows.
    target_link_options(halcyon_flags INTERFACE -fstack-protector-strong -Wl,--dynamicbase -Wl,--high-entropy-va
                                                -Wl,--nxcompat)
  else()
    include(CheckPIESupported)
    check_pie_supported(LANGUAGES CXX)
    target_link_options(halcyon_flags INTERFACE -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
  endif()
endif()
