# orvo_embed_dialogs(TARGET SCRIPT HEADER): links the dialogs of a resource script into a library, so that whoever shows
# one needs no files. The script includes the header, which has the numbers.
set(ORVO_EMBED_SCRIPT ${CMAKE_CURRENT_LIST_DIR}/EmbedScript.cmake)

function(orvo_embed_dialogs target script header)
  get_filename_component(script ${script} ABSOLUTE)
  get_filename_component(header ${header} ABSOLUTE)
  set(text ${CMAKE_CURRENT_BINARY_DIR}/${target}ResourceText.cpp)
  add_custom_command(OUTPUT ${text} DEPENDS ${script} ${header} ${ORVO_EMBED_SCRIPT}
    COMMAND ${CMAKE_COMMAND} -DSCRIPT=${script} -DHEADER=${header} -DOUTPUT=${text} -P ${ORVO_EMBED_SCRIPT}
    COMMENT "Embedding the dialogs of ${target}" VERBATIM)
  target_sources(${target} PRIVATE ${text})
endfunction()
