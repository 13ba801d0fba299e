# Links the Swiss Ephemeris data files of SRC into DST (copies where links
# cannot be made).
file(MAKE_DIRECTORY "${DST}")
file(GLOB ephe "${SRC}/*.se1" "${SRC}/*.txt")
if(NOT ephe)
  message(WARNING "No ephemeris files in ${SRC}: install swe-basic-data")
endif()
foreach(f ${ephe})
  get_filename_component(name "${f}" NAME)
  if(NOT EXISTS "${DST}/${name}")
    file(CREATE_LINK "${f}" "${DST}/${name}" COPY_ON_ERROR SYMBOLIC)
  endif()
endforeach()
