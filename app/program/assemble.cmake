# Copies into the application folder what the program reads, and creates what it writes. The
# settings file belongs to the user: it is created once and never changed afterwards. An empty one,
# which a full disk can leave, counts as missing.
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
# A settings file that is a symbolic link is the user's, whatever it leads to.
if(size EQUAL 0 AND NOT IS_SYMLINK ${settings})
  set(first "[General]\nLANGUAGE=uk\n")
  file(WRITE ${settings}.made ${first})
  file(READ ${settings}.made written) # file(WRITE) does not fail on a full disk
  if(NOT written STREQUAL first)
    file(REMOVE ${settings}.made)
    message(FATAL_ERROR "${settings} cannot be written. Free some space on the disk.")
  endif()
  file(RENAME ${settings}.made ${settings})
endif()
