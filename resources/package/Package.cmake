# What cpack is told of the Debian package, which scripts/package makes. It holds what the install rules install, and
# depends on what its files are linked with and, told here, on what they load while they run.
set(CPACK_PACKAGE_CONTACT ${CPACK_VESKO_MAINTAINER})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "write by voice in any program
Vesko writes what you say into any other program. Press a shortcut, or tap
or hold a key; speak; press again, and the words stand in the field where
you started. If pasting there would not be safe, they wait on the clipboard
and Vesko says why.

Every recording is kept before anything else is done with it, any recording
can be transcribed again, and Vesko never presses Return. Speech is
recognised on this computer, or by OpenRouter with a key of your own.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

execute_process(COMMAND dpkg-architecture -q DEB_HOST_MULTIARCH
  OUTPUT_VARIABLE architecture OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)

# The package that owns a file of this machine.
function(owner_of file package)
  execute_process(COMMAND dpkg-query -S ${file} OUTPUT_VARIABLE owner ERROR_QUIET)
  if(NOT owner MATCHES "^([^:\n]+)")
    message(FATAL_ERROR "no Debian package owns ${file}")
  endif()
  set(${package} ${CMAKE_MATCH_1} PARENT_SCOPE)
endfunction()

set(needed
  # the fields of other programs
  at-spi2-core
  # whom there is to find, and to steer
  "default-dbus-session-bus | dbus-session-bus"
  # the plug-ins that the sound graphs name
  gstreamer1.0-libav gstreamer1.0-plugins-bad gstreamer1.0-plugins-base gstreamer1.0-plugins-good
  # the icons
  libqt6svg6
  # the windows, in a session without X11
  qt6-wayland
  # the modules of QML that the windows import, and what these import
  qml6-module-qtqml qml6-module-qtqml-workerscript qml6-module-qtquick qml6-module-qtquick-layouts
  qml6-module-qtquick-templates qml6-module-qtquick-window)
# What is loaded by name with its first use.
foreach(library IN ITEMS libcld2.so.0 libcrypto.so.3 libcurl.so.4 libsecret-1.so.0
    libzip.so.[0-9])
  owner_of(*/${architecture}/${library} package)
  list(APPEND needed ${package})
endforeach()
list(JOIN needed ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
# A speech model, the fonts of the windows and of what people write, a keyring, a sound server, and what opens pages and files.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "pocketsphinx-en-us, fonts-inter, \
fonts-noto-color-emoji, fonts-noto-cjk | fonts-droid-fallback, \
gnome-keyring | kwalletmanager, pipewire-pulse | pulseaudio, \
xdg-desktop-portal-gtk | xdg-desktop-portal-backend, xdg-utils")
