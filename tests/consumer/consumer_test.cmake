# Install, configure, build, run: the first step that fails ends the test with what it said.
file(REMOVE_RECURSE "${SCRATCH}")
set(prefix "${SCRATCH}/install")

function(step)
    message("-- ${ARGV}")
    execute_process(COMMAND ${ARGV} RESULT_VARIABLE code OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT code EQUAL 0)
        message(FATAL_ERROR "This step failed (${code}):\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

step("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${prefix}")
step("${CMAKE_COMMAND}" -G Ninja -S "${SOURCE}" -B "${SCRATCH}/build" "-DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN}"
    "-DCMAKE_BUILD_TYPE=${BUILD_TYPE}" "-DCMAKE_PREFIX_PATH=${prefix}")
step("${CMAKE_COMMAND}" --build "${SCRATCH}/build")

# What the front page shows is what was built.
file(READ "${README}" readme)
foreach(shown picture.cpp)
    file(READ "${SOURCE}/${shown}" text)
    string(FIND "${readme}" "${text}" place)
    if(place EQUAL -1)
        message(FATAL_ERROR "README.md doesn't show ${shown} as it is.")
    endif()
endforeach()

# The installed DLLs are the only ones in reach.
file(GLOB programs "${SCRATCH}/build/*.exe")
file(COPY ${programs} DESTINATION "${prefix}/bin")
step("${RUN}" "${prefix}/bin/consumer.exe")
step("${RUN}" "${prefix}/bin/versions.exe")
message("${output}")
foreach(dll TavAfx TavBcg TavHost TavKit)
    if(NOT output MATCHES "${dll}.dll ${VERSION}\\.0 ${VERSION}\r?\n")
        message(FATAL_ERROR "${dll}.dll doesn't say that its version is ${VERSION}.")
    endif()
endforeach()
