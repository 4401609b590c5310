# Puts beside the program what it reads and writes. The settings are the fitter's: they are made
# once, and never touched again. Made whole: an empty file, as a full disk leaves it, is none.
file(GLOB languages ${SOURCE}/language/*.ini)
file(COPY ${languages} DESTINATION ${FOLDER}/language)
if(EXISTS ${SOURCE}/manual)
  file(COPY ${SOURCE}/manual DESTINATION ${FOLDER})
endif()
file(MAKE_DIRECTORY ${FOLDER}/log ${FOLDER}/ports)
set(settings ${FOLDER}/setting.ini)
set(size 0)
if(EXISTS ${settings})
  file(SIZE ${settings} size)
endif()
# Where a link leads is the fitter's own business.
if(size EQUAL 0 AND NOT IS_SYMLINK ${settings})
  set(first "[General]\nLANGUAGE=uk\n")
  file(WRITE ${settings}.made ${first})
  file(READ ${settings}.made written) # the write says nothing of a full disk
  if(NOT written STREQUAL first)
    file(REMOVE ${settings}.made)
    message(FATAL_ERROR "${settings} cannot be written. Make room on the disk.")
  endif()
  file(RENAME ${settings}.made ${settings})
endif()
