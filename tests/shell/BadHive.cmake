# Runs QUILLET in FOLDER on a settings file that is no database: the file is moved aside and named once on
# standard error, the program starts all the same, and the next run has nothing to say about it.
set(hive ${FOLDER}/settings.hive)
set(picture ${FOLDER}/window.png)
file(REMOVE_RECURSE ${FOLDER})
file(WRITE ${hive} "What a person keeps here\n")

function(run_quillet errors)
  file(REMOVE ${picture})
  execute_process(
    COMMAND ${CMAKE_COMMAND} -E env --unset=DISPLAY --unset=WAYLAND_DISPLAY --unset=QT_QPA_PLATFORM
      ${QUILLET} --demo --settings-file ${hive} --screenshot ${picture}
    RESULT_VARIABLE code OUTPUT_VARIABLE output ERROR_VARIABLE text)
  if(NOT code EQUAL 0 OR NOT EXISTS ${picture})
    message(FATAL_ERROR "quillet ended with ${code} and drew no window:\n${output}${text}")
  endif()
  set(${errors} "${text}" PARENT_SCOPE)
endfunction()

run_quillet(first)
run_quillet(second)

file(GLOB aside ${hive}.not-a-database-*)
list(LENGTH aside count)
if(NOT count EQUAL 1)
  message(FATAL_ERROR "Moved aside: ${count} files, \"${aside}\"")
endif()
file(READ ${aside} kept)
if(NOT kept STREQUAL "What a person keeps here\n")
  message(FATAL_ERROR "The file that was moved aside holds \"${kept}\"")
endif()
file(READ ${hive} made LIMIT 15)
if(NOT made MATCHES "^SQLite format 3")
  message(FATAL_ERROR "In its place stands \"${made}\"")
endif()
string(REGEX MATCHALL "it was moved to \"[^\n]*-database-" told "${first}")
list(LENGTH told count)
if(NOT count EQUAL 1)
  message(FATAL_ERROR "It was to be said once:\n${first}")
endif()
if(second MATCHES "settings file")
  message(FATAL_ERROR "Nothing was to be said the second time:\n${second}")
endif()
