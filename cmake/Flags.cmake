# Warnings, sanitizers and hardening, for every target of the project.
add_library(halcyon_flags INTERFACE)
target_compile_options(halcyon_flags INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(HALCYON_SANITIZE)
  target_compile_options(halcyon_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(halcyon_flags INTERFACE -fsanitize=address,undefined)
endif()
