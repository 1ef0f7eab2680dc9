# Writes the desktop entry ENTRY for the deployment values in INFO. A build with a client id of
# Google's tells the desktop by it that addresses of the reversed client id are Vesko's, which is
# how Google's page leads back. Also a script: cmake -DINFO=... -DENTRY=... -P DesktopEntry.cmake
file(READ ${INFO} values)
string(JSON client ERROR_VARIABLE absent GET "${values}" VeskoGoogleClientID)
set(redirect "")
if(client MATCHES "^([A-Za-z0-9-]+)\\.apps\\.googleusercontent\\.com$")
  string(TOLOWER ${CMAKE_MATCH_1} id) # schemes are looked up in lower case
  set(redirect "MimeType=x-scheme-handler/com.googleusercontent.apps.${id};")
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/app.vesko.Vesko.desktop.in ${ENTRY} @ONLY)
