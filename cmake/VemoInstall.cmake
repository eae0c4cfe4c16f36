# Where everything goes when it is installed: the program in bin, its own libraries in lib/vemo, which nobody else looks in.
set(VEMO_LIBRARY_FOLDER lib/vemo)
if(WIN32)
    set(VEMO_LIBRARY_FOLDER bin)
endif()

# vemo_install(): installs every program and library of the product. Component "client" is the program, "simulator" the
# simulated recorder, for trying things out.
function(vemo_install)
    get_property(known GLOBAL PROPERTY VEMO_TARGETS)
    set(libraries)
    foreach(target IN LISTS known ITEMS vaws_codecs vemo_frames vemo_decode)
        if(TARGET ${target})
            get_target_property(type ${target} TYPE)
            get_target_property(folder ${target} SOURCE_DIR)
            if(type MATCHES "SHARED_LIBRARY|MODULE_LIBRARY" AND NOT folder MATCHES "^${PROJECT_SOURCE_DIR}/(tests|bench)(/|$)")
                list(APPEND libraries ${target})
            endif()
        endif()
    endforeach()
    list(REMOVE_DUPLICATES libraries)
    install(TARGETS ${libraries} COMPONENT client LIBRARY DESTINATION ${VEMO_LIBRARY_FOLDER} RUNTIME DESTINATION bin)
    install(TARGETS vemo_client COMPONENT client RUNTIME DESTINATION bin)
    install(TARGETS recorder_sim COMPONENT simulator RUNTIME DESTINATION ${VEMO_LIBRARY_FOLDER})
    # The same in the build tree: a path that is exchanged while installing gets filled up with empty entries before, and those
    # mean the folder in which one happens to be.
    set_target_properties(${libraries} vemo_client PROPERTIES BUILD_WITH_INSTALL_RPATH ON)
    set_target_properties(${libraries} PROPERTIES INSTALL_RPATH "$ORIGIN")
    set_target_properties(vemo_client PROPERTIES INSTALL_RPATH "$ORIGIN/../${VEMO_LIBRARY_FOLDER};$ORIGIN/../lib")

    install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs/guide/" COMPONENT client DESTINATION share/vemo/guide)
    # A program that was built and not installed finds its guide at the same place.
    file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/share/vemo")
    file(CREATE_LINK "${PROJECT_SOURCE_DIR}/docs/guide" "${CMAKE_BINARY_DIR}/share/vemo/guide" COPY_ON_ERROR SYMBOLIC)
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs/images/" COMPONENT client DESTINATION share/vemo/images PATTERN "*@2x.png" EXCLUDE)
    if(UNIX AND NOT APPLE)
        vemo_install_desktop()
    endif()
endfunction()

# What a Linux desktop wants to know of a program.
function(vemo_install_desktop)
    set(packaging "${PROJECT_SOURCE_DIR}/packaging")
    set(made "${PROJECT_BINARY_DIR}/packaging")
    install(FILES "${packaging}/com.vemo.client.desktop" COMPONENT client DESTINATION share/applications)
    configure_file("${packaging}/com.vemo.client.metainfo.xml.in" "${made}/com.vemo.client.metainfo.xml" @ONLY)
    install(FILES "${made}/com.vemo.client.metainfo.xml" COMPONENT client DESTINATION share/metainfo)
    install(FILES "${packaging}/icons/com.vemo.client.svg" COMPONENT client DESTINATION share/icons/hicolor/scalable/apps)
    foreach(size IN ITEMS 16 24 32 48 64 128 256)
        install(FILES "${packaging}/icons/${size}.png" COMPONENT client DESTINATION share/icons/hicolor/${size}x${size}/apps
            RENAME com.vemo.client.png)
    endforeach()

    configure_file("${packaging}/changelog.in" "${made}/changelog" @ONLY)
    # Made anew at each installation: the manual page is what the program says of itself.
    install(CODE "
        find_program(gzip gzip REQUIRED)
        execute_process(COMMAND \"${Python3_EXECUTABLE}\" \"${packaging}/man_page.py\" \"$<TARGET_FILE:vemo_client>\" \"${made}/vemo_client.1\"
            COMMAND_ERROR_IS_FATAL ANY)
        foreach(page IN ITEMS vemo_client.1 changelog)
            execute_process(COMMAND \${gzip} -9nc \"${made}/\${page}\" OUTPUT_FILE \"${made}/\${page}.gz\" COMMAND_ERROR_IS_FATAL ANY)
        endforeach()" COMPONENT client)
    install(FILES "${made}/vemo_client.1.gz" COMPONENT client DESTINATION share/man/man1)
    foreach(package IN ITEMS client:vemo simulator:vemo-recorder-sim)
        string(REPLACE ":" ";" pair ${package})
        list(GET pair 0 component)
        list(GET pair 1 name)
        install(FILES "${packaging}/copyright" COMPONENT ${component} DESTINATION share/doc/${name})
    endforeach()
    install(CODE "
        find_program(gzip gzip REQUIRED)
        execute_process(COMMAND \${gzip} -9nc \"${made}/changelog\" OUTPUT_FILE \"${made}/changelog.gz\" COMMAND_ERROR_IS_FATAL ANY)"
        COMPONENT simulator)
    install(FILES "${made}/changelog.gz" COMPONENT client DESTINATION share/doc/vemo)
    install(FILES "${made}/changelog.gz" COMPONENT simulator DESTINATION share/doc/vemo-recorder-sim)
    install(FILES "${PROJECT_SOURCE_DIR}/recorder_sim/README.md" COMPONENT simulator DESTINATION share/doc/vemo-recorder-sim)
endfunction()
