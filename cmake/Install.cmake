# What "cmake --install" lays out, below any prefix and DESTDIR.
#
# The programs look for "../resources/" and "../profiles/" beside their own folder, and resolve
# links to find it. So they stay together in lib/kolt, and bin/ has links to them. Data that suit
# every processor are in share/kolt, with links in lib/kolt. On Windows all of it is in one folder
# without links, which can be moved as a whole.

if(NOT CMAKE_INSTALL_DOCDIR)
    set(CMAKE_INSTALL_DOCDIR share/doc/kolt) # else the project's name, in capitals
endif()
include(GNUInstallDirs)

set(KOLT_LIBDIR lib/kolt CACHE STRING "Where the programs are installed, below the prefix")
if(WIN32)
    set(home .)
    set(data .)
    set(documents doc)
else()
    set(home ${KOLT_LIBDIR})
    set(data ${CMAKE_INSTALL_DATADIR}/kolt)
    set(documents ${CMAKE_INSTALL_DOCDIR})
endif()

# kolt_install_link(PLACE TARGET NAME): a relative link in the folder PLACE to TARGET; both below
# the prefix.
function(kolt_install_link place target name)
    file(RELATIVE_PATH path /prefix/${place} /prefix/${target})
    set(links ${PROJECT_BINARY_DIR}/links/${place})
    file(MAKE_DIRECTORY ${links})
    file(REMOVE ${links}/${name})
    file(CREATE_LINK ${path} ${links}/${name} SYMBOLIC)
    install(FILES ${links}/${name} DESTINATION ${place})
endfunction()

set(programs kolt-cli)
if(KOLT_GUI)
    list(PREPEND programs kolt)
endif()
install(TARGETS ${programs} RUNTIME DESTINATION ${home}/bin)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/profiles DESTINATION ${data})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/resources/views DESTINATION ${data}/resources)
install(DIRECTORY ${PROJECT_BINARY_DIR}/resources/sample DESTINATION ${data}/resources)
# The programs have these inside; here they can be read without starting one.
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${documents})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/resources/licenses DESTINATION ${documents})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/help DESTINATION ${documents})

if(NOT WIN32)
    foreach(program IN LISTS programs)
        kolt_install_link(${CMAKE_INSTALL_BINDIR} ${home}/bin/${program} ${program})
    endforeach()
    foreach(folder profiles resources)
        kolt_install_link(${home} ${data}/${folder} ${folder})
    endforeach()

    set(desktop ${PROJECT_SOURCE_DIR}/packaging/desktop)
    configure_file(${desktop}/org.kolt.kolt.metainfo.xml.in
        ${PROJECT_BINARY_DIR}/desktop/org.kolt.kolt.metainfo.xml @ONLY)
    install(FILES ${desktop}/org.kolt.kolt.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    install(FILES ${PROJECT_BINARY_DIR}/desktop/org.kolt.kolt.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
    install(FILES ${desktop}/kolt-project.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
        RENAME kolt.xml)
    install(FILES ${PROJECT_SOURCE_DIR}/resources/icons/app.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps RENAME kolt.svg)
    foreach(program IN LISTS programs)
        configure_file(${desktop}/${program}.1.in ${PROJECT_BINARY_DIR}/desktop/${program}.1 @ONLY)
        install(FILES ${PROJECT_BINARY_DIR}/desktop/${program}.1
            DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    endforeach()
endif()
