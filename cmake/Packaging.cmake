# The Debian package: `cmake --workflow --preset package` configures, builds and runs CPack.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME lumivex-plus)
set(CPACK_PACKAGE_VENDOR ZenmoraWorksJP)
set(CPACK_PACKAGE_CONTACT "Lumivex Plus maintainers <maintainers@lumivex-plus.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

# A pre-release must sort before its final release: Debian's "~" does that, "4.3a1" would
# sort after "4.3".
string(REGEX REPLACE "^([0-9.]*[0-9])([a-z].*)$" "\\1~\\2" CPACK_DEBIAN_PACKAGE_VERSION
                     "${LUMIVEX_VERSION_STRING}")
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "thumbnail browser for camera cards
Lumivex Plus shows the thumbnails that a camera embedded in the Exif
block of each JPEG, in a scrolling grid with the file names, reading
only the head of each file. A camera card is found when it is mounted.
The user interface is in Japanese.
The package also holds lumivex, a command that prints Exif reports and
extracts thumbnails.")

# The libraries come from dpkg-shlibdeps; what the program loads or runs by itself is named
# here: the CJK font of its texts, the SVG and image-format plugins, and the eject tools.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-noto-cjk, libqt6svg6, qt6-image-formats-plugins")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "udisks2, libglib2.0-bin")

include(CPack)
