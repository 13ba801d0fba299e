# Fails when kaltrova-cli, linked with its own C++ runtime, loads a shared
# library beyond the C library and the ephemeris: a C++ library among them
# would bring a second copy of the runtime. EXE is the program.
execute_process(COMMAND readelf -d "${EXE}" OUTPUT_VARIABLE dynamic RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "readelf -d ${EXE} failed")
endif()
string(REGEX MATCHALL "Shared library: \\[[^]]+\\]" needed "${dynamic}")
set(bad)
foreach(n ${needed})
  string(REGEX REPLACE "Shared library: \\[([^]]+)\\]" "\\1" lib "${n}")
  if(NOT lib MATCHES "^(libc|libm|libswe|ld-linux[-a-z0-9_]*)\\.so")
    list(APPEND bad ${lib})
  endif()
endforeach()
if(bad)
  message(FATAL_ERROR "kaltrova-cli carries its own C++ runtime but loads ${bad}: configure "
                      "with -DKALTROVA_CLI_STATIC_RUNTIME=OFF, or keep that library out of it")
endif()
