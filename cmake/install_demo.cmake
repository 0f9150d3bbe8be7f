# Installs the demo made at build time. Its playlist names its files by
# absolute paths, so they are rewritten to the folder the demo is installed
# in (the prefix without DESTDIR, which only stages the files).
set(installed_folder "${CMAKE_INSTALL_PREFIX}/${ORVANE_DEMO_INSTALL_DIR}")
set(staged_folder "$ENV{DESTDIR}${installed_folder}")
file(READ "${ORVANE_DEMO_BUILD_DIR}/demo.orx" playlist)
string(REPLACE "${ORVANE_DEMO_BUILD_DIR}/" "${installed_folder}/" playlist "${playlist}")
message(STATUS "Installing: ${staged_folder}/demo.orx")
file(WRITE "${staged_folder}/demo.orx" "${playlist}")
