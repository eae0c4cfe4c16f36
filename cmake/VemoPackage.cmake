# `cpack -G DEB` in a build tree makes two packages of Debian 12: the client, and the simulated recorder.
set(CPACK_PACKAGE_NAME vemo)
set(CPACK_PACKAGE_VENDOR "The Vemo developers")
set(CPACK_PACKAGE_CONTACT "The Vemo developers <vemo@example.org>")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL client simulator)
set(CPACK_DEB_COMPONENT_INSTALL ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_CLIENT_PACKAGE_NAME vemo)
set(CPACK_DEBIAN_CLIENT_PACKAGE_SECTION video)
# Beside what is linked: what is loaded at its first use.
set(CPACK_DEBIAN_CLIENT_PACKAGE_DEPENDS "libmpv2, libqt5sql5-sqlite")
set(CPACK_DEBIAN_CLIENT_PACKAGE_RECOMMENDS "qttranslations5-l10n, xdg-utils")
set(CPACK_DEBIAN_CLIENT_PACKAGE_SUGGESTS "vemo-recorder-sim, gnome-keyring | kwalletmanager")
set(CPACK_COMPONENT_CLIENT_DESCRIPTION "client for network video recorders
Vemo shows live and recorded video of recorders that speak ONVIF and RTSP,
downloads recordings as MP4 files that play while they grow and survive a
crash, and backs up whole days by plan. It also manages the recordings,
snapshots and video files on this computer, in a window or from the command
line.")

set(CPACK_DEBIAN_SIMULATOR_PACKAGE_NAME vemo-recorder-sim)
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_SECTION video)
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_DEPENDS "ffmpeg")
set(CPACK_COMPONENT_SIMULATOR_DESCRIPTION "simulated network video recorder
A program that answers like a network video recorder with ONVIF, RTSP, live
video and recordings, and that can be told to fail. It is there to try the
client vemo out, and to test it, where no recorder is at hand.")

include(CPack)
