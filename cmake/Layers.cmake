# The layers of src/: one library per folder, linked only to the folders
# below it, and a build-time check that no source file includes a header of
# a folder it may not use, and that no core file includes Qt.
#
#   kaltrova_layer(FOLDER [DEPENDS folder...] [QT component...] [LIBS target...] [QT_GUARDED])
#
# FOLDER is a folder of src/ ("chart", "birthdata/ui"); its library is
# kaltrova_<folder with / as _>, built from the folder's own .cpp files
# (main.cpp excluded: it is the folder's program). A folder without sources
# yet gives an interface library, so that later code drops in. DEPENDS are
# the folders right below it; what they may use, it may use too. QT lists
# the Qt 6 components the folder may include; a folder without QT may not
# include Qt at all, unless QT_GUARDED says its Qt includes sit under a
# build switch that is off in this configuration (nothing of Qt is linked).
set_property(GLOBAL PROPERTY KALTROVA_LAYERS "")

function(kaltrova_layer_target folder out)
  string(REPLACE "/" "_" name "${folder}")
  set(${out} kaltrova_${name} PARENT_SCOPE)
endfunction()

function(kaltrova_layer folder)
  cmake_parse_arguments(L "QT_GUARDED" "" "DEPENDS;QT;LIBS" ${ARGN})
  kaltrova_layer_target(${folder} target)
  set(dir ${CMAKE_SOURCE_DIR}/src/${folder})
  file(GLOB sources CONFIGURE_DEPENDS ${dir}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  file(GLOB headers CONFIGURE_DEPENDS ${dir}/*.h ${dir}/*.ui)

  # Everything the folder may include: its own files and what its
  # dependencies may include.
  set(allowed ${folder})
  foreach(dep ${L_DEPENDS})
    get_property(dep_allowed GLOBAL PROPERTY KALTROVA_ALLOWED_${dep})
    if(NOT dep_allowed)
      message(FATAL_ERROR "Layer ${folder}: ${dep} is not declared below it")
    endif()
    list(APPEND allowed ${dep_allowed})
  endforeach()
  list(REMOVE_DUPLICATES allowed)
  set_property(GLOBAL PROPERTY KALTROVA_ALLOWED_${folder} "${allowed}")
  set(qt_allowed 0)
  if(L_QT)
    set(qt_allowed 1)
  endif()
  foreach(dep ${L_DEPENDS})
    get_property(dep_qt GLOBAL PROPERTY KALTROVA_QT_${dep})
    if(dep_qt)
      set(qt_allowed 1)
    endif()
  endforeach()
  set_property(GLOBAL PROPERTY KALTROVA_QT_${folder} ${qt_allowed})
  set(qt_linked ${qt_allowed})
  if(L_QT_GUARDED)
    set(qt_allowed 1)
  endif()
  string(REPLACE ";" "," allowed_list "${allowed}")
  set_property(GLOBAL APPEND PROPERTY KALTROVA_LAYERS "${folder}|${qt_allowed}|${allowed_list}")

  set(dep_targets)
  foreach(dep ${L_DEPENDS})
    kaltrova_layer_target(${dep} dep_target)
    list(APPEND dep_targets ${dep_target})
  endforeach()
  set(qt_targets)
  foreach(component ${L_QT})
    list(APPEND qt_targets Qt6::${component})
  endforeach()

  if(sources)
    add_library(${target} STATIC ${sources} ${headers})
    target_include_directories(${target} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(${target} PUBLIC ${dep_targets} ${qt_targets} ${L_LIBS})
    add_dependencies(${target} layer_check)
    if(qt_linked)
      set_target_properties(${target} PROPERTIES AUTOMOC ON AUTOUIC ON
                            AUTOUIC_SEARCH_PATHS ${dir})
    endif()
  else()
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(${target} INTERFACE ${dep_targets} ${qt_targets} ${L_LIBS})
  endif()
endfunction()

# Writes the folder map the check reads; call once after the last layer.
function(kaltrova_layer_map file)
  get_property(layers GLOBAL PROPERTY KALTROVA_LAYERS)
  list(JOIN layers "\n" text)
  file(WRITE ${file} "${text}\n")
endfunction()
