# Installs the build into a fresh directory, moves that elsewhere and runs it there without the user's surroundings.
function(expect_output expected)
  execute_process(COMMAND env -i HOME=/nonexistent PATH=/usr/bin:/bin ${ARGN}
    OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE status)
  if(NOT status EQUAL 0 OR NOT out MATCHES "${expected}")
    message(FATAL_ERROR "${ARGN}\nended with ${status}\n${out}${err}")
  endif()
endfunction()

file(REMOVE_RECURSE ${PREFIX} ${PREFIX}-moved)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${PREFIX} ${PREFIX}-moved)
expect_output("^293.15 K\n$" ${PREFIX}-moved/bin/hygrion-cli units convert 20 C K)
expect_output("^HygrionSolver " ${PREFIX}-moved/bin/HygrionSolver.exe --version)
expect_output("Results: " ${PREFIX}-moved/bin/hygrion-cli run --duration 1h --output-dir ${PREFIX}-moved/run
  "${PREFIX}-moved/lib/hygrion/examples/validation/HAMSTAD 2.h6p")
expect_output("units convert" cat ${PREFIX}-moved/share/man/man1/hygrion-cli.1)
expect_output("complete .* hygrion-cli" cat ${PREFIX}-moved/share/bash-completion/completions/hygrion-cli)
if(EXISTS ${PREFIX}-moved/bin/hygrion-plot)
  expect_output("^hygrion-plot " ${PREFIX}-moved/bin/hygrion-plot --version)
  expect_output("^$" ${PREFIX}-moved/bin/hygrion-plot material ${PREFIX}-moved/lib/hygrion/DB_materials/spruce_113.m6
    --lang de -o ${PREFIX}-moved/picture.png)
endif()
if(EXISTS ${PREFIX}-moved/bin/Hygrion)
  expect_output("Syntax: Hygrion" QT_QPA_PLATFORM=offscreen ${PREFIX}-moved/bin/Hygrion --help)
endif()
file(REMOVE_RECURSE ${PREFIX}-moved)
