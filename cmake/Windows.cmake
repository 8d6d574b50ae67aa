# Version, icon and manifest inside the programs for Windows.
#
#   kolt_program_resources(TARGET)

if(WIN32)
    enable_language(RC)
    set(windowsFolder ${PROJECT_SOURCE_DIR}/packaging/windows)
    set(KOLT_ICON ${PROJECT_BINARY_DIR}/windows/kolt.ico)
    configure_file(${windowsFolder}/program.rc.in ${PROJECT_BINARY_DIR}/windows/program.rc @ONLY)
    add_custom_command(OUTPUT ${KOLT_ICON}
        COMMAND ${windowsFolder}/icon.py ${PROJECT_SOURCE_DIR}/resources/icons/app.svg ${KOLT_ICON}
        DEPENDS ${windowsFolder}/icon.py ${PROJECT_SOURCE_DIR}/resources/icons/app.svg VERBATIM)
    set_source_files_properties(${PROJECT_BINARY_DIR}/windows/program.rc PROPERTIES
        OBJECT_DEPENDS "${KOLT_ICON};${windowsFolder}/kolt.manifest")
    add_custom_target(kolt_icon DEPENDS ${KOLT_ICON})
endif()

function(kolt_program_resources target)
    if(WIN32)
        target_sources(${target} PRIVATE ${PROJECT_BINARY_DIR}/windows/program.rc)
        add_dependencies(${target} kolt_icon)
    endif()
endfunction()
