# The device's artwork and sounds.
#
# nautrix_add_assets(target) embeds the vector sources in `target` as Qt
# resources under ":/art", so the program needs no art files at run time, and
# makes the four wave files, which the device reads by name from the program's
# folder, in ${CMAKE_BINARY_DIR} beside the executable. It also adds the
# review tool nautrix_gallery.

function(nautrix_add_assets target)
  set(assets_dir ${CMAKE_CURRENT_FUNCTION_LIST_DIR})
  set(tools_dir ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../tools)

  file(GLOB page_files CONFIGURE_DEPENDS ${assets_dir}/pages/*.svg)
  # With a static library Qt compiles the resources into an object library
  # whose objects reach every executable that links `target`.
  qt_add_resources(${target} nautrix_art
    PREFIX /art
    BASE ${assets_dir}
    FILES ${assets_dir}/front.svg ${assets_dir}/back.svg ${assets_dir}/nautrix.svg
      ${assets_dir}/nautrix_16.svg ${assets_dir}/nautrix_24.svg ${page_files})

  # The beeps, synthesised at build time by our own tool.
  add_executable(nautrix_make_beeps ${tools_dir}/make_beeps.cpp)
  set(wave_files)
  foreach(n 0 1 2 3)
    list(APPEND wave_files ${CMAKE_BINARY_DIR}/Beep${n}.wav)
  endforeach()
  add_custom_command(
    OUTPUT ${wave_files}
    COMMAND nautrix_make_beeps ${CMAKE_BINARY_DIR}
    DEPENDS nautrix_make_beeps
    COMMENT "Synthesising Beep0.wav .. Beep3.wav"
    VERBATIM)
  add_custom_target(nautrix_beeps DEPENDS ${wave_files})
  # Whatever links `target` (the program, its tests) is built after the beeps.
  add_dependencies(${target} nautrix_beeps)

  # The review renderer: PNGs of the device, its scenes and the leaflet.
  add_executable(nautrix_gallery ${tools_dir}/gallery.cpp
    ${CMAKE_SOURCE_DIR}/tests/support/fake_platform.cpp)
  target_include_directories(nautrix_gallery PRIVATE ${CMAKE_SOURCE_DIR})
  target_link_libraries(nautrix_gallery PRIVATE ${target})
endfunction()
