# Copies SOURCE to DESTINATION unless DESTINATION already exists.
if(NOT EXISTS "${DESTINATION}")
  get_filename_component(folder "${DESTINATION}" DIRECTORY)
  file(COPY "${SOURCE}" DESTINATION "${folder}")
endif()
