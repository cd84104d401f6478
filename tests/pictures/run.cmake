# Draws the gallery with the programs of this build and compares it with the one in docs/gallery.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK}/actual)
execute_process(COMMAND ${GALLERY}/make ${PROGRAMS} ${WORK}/actual
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${COMPARE} ${GALLERY} ${WORK}/actual ${WORK}
  COMMAND_ERROR_IS_FATAL ANY)
