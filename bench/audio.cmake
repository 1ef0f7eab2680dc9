add_executable(bench_recorder_start bench_recorder_start.cpp
  ${PROJECT_SOURCE_DIR}/tests/linux/audio/Child.cpp
  ${PROJECT_SOURCE_DIR}/tests/linux/audio/SoundServer.cpp)
target_link_libraries(bench_recorder_start PRIVATE VeskoLinuxAudio)
