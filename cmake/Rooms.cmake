# A room is a folder; its sources are all the .cpp files in it.
function(orvo_room_sources out)
  set(all)
  foreach(room IN LISTS ARGN)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${room}/*.cpp)
    list(APPEND all ${sources})
  endforeach()
  set(${out} ${all} PARENT_SCOPE)
endfunction()
