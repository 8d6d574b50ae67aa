# Common settings of the targets: warnings, moc, and a precompiled header of Qt.
#
#   kolt_layer(TARGET core)    no windows, no moc; add "moc" where a core has signals
#   kolt_layer(TARGET ui)      faces: Widgets and moc
#   kolt_layer(TARGET test)    like ui, with Qt Test
#
# A precompiled header is built once per layer, from cmake/pch/<layer>.h. It is there for speed
# alone: every source includes what it uses, which the portability check compiles without it.

find_program(KOLT_CCACHE ccache)
if(KOLT_CCACHE)
    # ccache needs this sloppiness to work with precompiled headers.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        ${KOLT_CCACHE})
endif()

# Include paths of every target: the source root and the configured headers.
add_library(kolt_options INTERFACE)
target_include_directories(kolt_options INTERFACE ${PROJECT_SOURCE_DIR}
    ${PROJECT_BINARY_DIR}/generated)
target_compile_options(kolt_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    -Wno-sign-conversion -Wnon-virtual-dtor -Woverloaded-virtual
    $<$<BOOL:${KOLT_WARNINGS_AS_ERRORS}>:-Werror>)
target_compile_definitions(kolt_options INTERFACE QT_NO_CAST_TO_ASCII QT_NO_FOREACH
    QT_DISABLE_DEPRECATED_BEFORE=0x060000)
if(KOLT_SANITIZE)
    target_compile_options(kolt_options INTERFACE -fsanitize=${KOLT_SANITIZE}
        -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(kolt_options INTERFACE -fsanitize=${KOLT_SANITIZE})
endif()

# What the tests do with their own variables is not what the sanitizers look for, and costs more than
# half of the time to compile a test, of which optimising takes another half. Accesses to the heap stay
# checked.
if(KOLT_SANITIZE MATCHES address AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    set(KOLT_COMPILE_test -fno-sanitize=undefined --param asan-stack=0 -O0)
endif()

# All sources of a layer see the same Qt modules, so that they can share the precompiled header.
function(kolt_precompile layer)
    set(header ${PROJECT_SOURCE_DIR}/cmake/pch/${layer}.h)
    add_library(kolt_pch_${layer} OBJECT ${PROJECT_SOURCE_DIR}/cmake/pch/empty.cpp)
    target_link_libraries(kolt_pch_${layer} PRIVATE kolt_options ${KOLT_QT_${layer}})
    target_compile_definitions(kolt_pch_${layer} PRIVATE ${KOLT_DEFINITIONS_${layer}})
    target_compile_options(kolt_pch_${layer} PRIVATE ${KOLT_COMPILE_${layer}})
    target_precompile_headers(kolt_pch_${layer} PRIVATE ${header})
endfunction()

# Without QT_NO_CAST_FROM_ASCII for tests: they may compare with plain literals.
set(KOLT_DEFINITIONS_core QT_NO_CAST_FROM_ASCII)
set(KOLT_DEFINITIONS_ui QT_NO_CAST_FROM_ASCII)
set(KOLT_QT_core Qt6::Core Qt6::Gui Qt6::Xml)
set(KOLT_QT_ui ${KOLT_QT_core} Qt6::Widgets Qt6::OpenGL Qt6::OpenGLWidgets)
if(KOLT_GUI)
    set(KOLT_QT_test ${KOLT_QT_ui} Qt6::Network Qt6::Test)
    kolt_precompile(ui)
else()
    set(KOLT_QT_test ${KOLT_QT_core} Qt6::Network Qt6::Test)
endif()
kolt_precompile(core)

function(kolt_layer target layer)
    target_link_libraries(${target} PUBLIC kolt_options Qt6::Core PRIVATE ${KOLT_QT_${layer}})
    target_compile_definitions(${target} PRIVATE ${KOLT_DEFINITIONS_${layer}})
    target_compile_options(${target} PRIVATE ${KOLT_COMPILE_${layer}})
    if(NOT layer STREQUAL core OR "moc" IN_LIST ARGN)
        set_target_properties(${target} PROPERTIES AUTOMOC ON)
    endif()
    if(TARGET kolt_pch_${layer} AND NOT "no-pch" IN_LIST ARGN)
        target_precompile_headers(${target} REUSE_FROM kolt_pch_${layer})
    endif()
endfunction()
