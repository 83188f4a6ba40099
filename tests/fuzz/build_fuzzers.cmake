# Configures and builds fuzz/ on its own with clang (cmake -P, with CLANGXX, SOURCE and BUILD
# set), and makes the corpus folders the fuzz runs write to.
execute_process(
  COMMAND ${CMAKE_COMMAND} -S ${SOURCE} -B ${BUILD} -G Ninja -DCMAKE_CXX_COMPILER=${CLANGXX}
          -DCMAKE_BUILD_TYPE=RelWithDebInfo
  RESULT_VARIABLE configured)
if(NOT configured EQUAL 0)
  message(FATAL_ERROR "configuring the fuzz targets failed")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${BUILD} RESULT_VARIABLE built)
if(NOT built EQUAL 0)
  message(FATAL_ERROR "building the fuzz targets failed")
endif()
file(MAKE_DIRECTORY ${BUILD}/corpus/profile ${BUILD}/corpus/resource_library)
