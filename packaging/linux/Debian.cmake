# Two packages, lumora-screenshot and kestrel: a desktop needs no service, a server no desktop.
set(LUMORA_MAINTAINER "Lumora <packages@lumora.example>" CACHE STRING "Who answers for the packages")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL lumora-screenshot kestrel)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGE_CONTACT ${LUMORA_MAINTAINER})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# The libraries, by what the programs are linked with. What Qt loads at run time lies in the same packages: libqt6gui6
# has the X11 platform and the readers of JPEG and GIF, libqt6network6 TLS.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

# A font for the texts; links and pictures are opened by xdg-open; certificates for uploads.
set(CPACK_DEBIAN_LUMORA-SCREENSHOT_PACKAGE_NAME lumora-screenshot)
set(CPACK_DEBIAN_LUMORA-SCREENSHOT_PACKAGE_SECTION non-free/graphics)
set(CPACK_DEBIAN_LUMORA-SCREENSHOT_PACKAGE_RECOMMENDS "fonts-dejavu-core | fonts-noto-core, xdg-utils, ca-certificates")
set(CPACK_DEBIAN_LUMORA-SCREENSHOT_PACKAGE_SUGGESTS "kestrel")
set(CPACK_COMPONENT_LUMORA-SCREENSHOT_DESCRIPTION "screenshots of regions, windows and displays, with annotations
A screenshot tool that lives in the background of an X11 desktop. A global
hot key freezes the display under the pointer; a region is dragged or a
window clicked, drawn on, and saved, copied, pinned or uploaded.
.
The picture is exact to the pixel at every scale factor, and nothing of the
tool is ever in it. A ruler, a colour picker and a command line are included.")

set(CPACK_DEBIAN_KESTREL_PACKAGE_NAME kestrel)
set(CPACK_DEBIAN_KESTREL_PACKAGE_SOURCE lumora-screenshot)
set(CPACK_DEBIAN_KESTREL_PACKAGE_SECTION non-free/web)
set(CPACK_DEBIAN_KESTREL_PACKAGE_RECOMMENDS "ca-certificates") # for a bucket
set(CPACK_DEBIAN_KESTREL_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(scripts ${CMAKE_CURRENT_SOURCE_DIR}/kestrel.deb)
set(CPACK_DEBIAN_KESTREL_PACKAGE_CONTROL_EXTRA "${scripts}/postinst;${scripts}/prerm;${scripts}/postrm")
set(CPACK_COMPONENT_KESTREL_DESCRIPTION "image service for screenshots of a team
Takes the pictures that the screenshot tool Lumora Mac Screenshot uploads and
serves each under a link that nobody can guess, with a password if wanted.
.
Pictures are checked before they are stored, pages hold no script, and the
sender alone gets the link that removes a picture.")

include(CPack)
