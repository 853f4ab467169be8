# Adds the resources of a Windows program: manifest, icon, version. Does nothing on other systems.
function(inin_windows_program target description)
    if(NOT WIN32)
        return()
    endif()
    set(ININ_PACKAGING "${PROJECT_SOURCE_DIR}/packaging/windows")
    set(ININ_PROGRAM ${target})
    set(ININ_DESCRIPTION "${description}")
    set(resource "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
    configure_file("${ININ_PACKAGING}/program.rc.in" "${resource}" @ONLY)
    set_property(SOURCE "${resource}" PROPERTY OBJECT_DEPENDS
        "${ININ_PACKAGING}/program.manifest;${ININ_PACKAGING}/program.ico")
    if(MINGW)
        set_property(SOURCE "${resource}" PROPERTY COMPILE_OPTIONS -c65001)
    else()
        target_link_options(${target} PRIVATE /MANIFEST:NO) # it is in the resource
    endif()
    target_sources(${target} PRIVATE "${resource}")
endfunction()
