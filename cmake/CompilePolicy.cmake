# One place for the compile policy every target of the project follows.
add_library(velmora_policy INTERFACE)
target_compile_features(velmora_policy INTERFACE cxx_std_20)
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
target_compile_options(velmora_policy INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wcast-align -Woverloaded-virtual
    -Wno-missing-field-initializers)
target_compile_definitions(velmora_policy INTERFACE
    QT_DISABLE_DEPRECATED_BEFORE=0x060400
    QT_NO_KEYWORDS
    QT_NO_URL_CAST_FROM_STRING
    QT_USE_QSTRINGBUILDER
    POINTERHOLDER_TRANSITION=4)

if(VELMORA_FUZZ)
    # Every library is instrumented for the fuzzer's coverage; only the targets link its main.
    set(VELMORA_SANITIZE ON)
    target_compile_options(velmora_policy INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(VELMORA_SANITIZE)
    target_compile_options(velmora_policy INTERFACE
        -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(velmora_policy INTERFACE -fsanitize=address,undefined)
endif()

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Build type" FORCE)
endif()
