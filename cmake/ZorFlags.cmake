# zor_flags: what every target of ours is compiled with. Link it as $<BUILD_INTERFACE:zor_flags>,
# so that whoever links our libraries does not inherit it.
add_library(zor_flags INTERFACE)
target_compile_features(zor_flags INTERFACE cxx_std_20)
target_compile_options(
  zor_flags
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wconversion
            -Wdouble-promotion
            -Wold-style-cast
            $<$<BOOL:${ZOR_WERROR}>:-Werror>
            # Borderline results must not depend on whether the target can fuse a multiply and add.
            -ffp-contract=off
            # Nobody reads errno after a square root, which is one instruction then.
            -fno-math-errno)
target_compile_definitions(zor_flags INTERFACE $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)

if(ZOR_SANITIZE)
  string(REPLACE ";" "," zor_sanitizers "${ZOR_SANITIZE}")
  target_compile_options(
    zor_flags
    INTERFACE -fsanitize=${zor_sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer
              # The instrumentation hides initialisations from this warning.
              -Wno-maybe-uninitialized)
  target_link_options(zor_flags INTERFACE -fsanitize=${zor_sanitizers})
endif()
