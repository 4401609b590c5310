# Puts beside the program what it reads and writes. The settings are the fitter's: they are made
# once, and never touched again.
file(GLOB languages ${SOURCE}/language/*.ini)
file(COPY ${languages} DESTINATION ${FOLDER}/language)
if(EXISTS ${SOURCE}/manual)
  file(COPY ${SOURCE}/manual DESTINATION ${FOLDER})
endif()
file(MAKE_DIRECTORY ${FOLDER}/log ${FOLDER}/ports)
if(NOT EXISTS ${FOLDER}/setting.ini)
  file(WRITE ${FOLDER}/setting.ini "[General]\nLANGUAGE=uk\n")
endif()
