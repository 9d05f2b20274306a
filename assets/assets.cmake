# The device's artwork and sounds.
#
# nautrix_add_assets(target) gives `target` the renderer of the art, the
# library nautrix_art, with the vector sources embedded as Qt resources under
# ":/art", so the program needs no art files at run time; the pictures at
# 100 % and the icon rendered at build time; and the four wave files, which
# the device reads by name from the program's folder, made in
# ${CMAKE_BINARY_DIR} beside the executable. It also adds the review tool
# nautrix_gallery.

function(nautrix_add_assets target)
  set(assets_dir ${CMAKE_CURRENT_FUNCTION_LIST_DIR})
  set(tools_dir ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../tools)
  set(pictures_dir ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../shell/pictures)

  add_library(nautrix_art STATIC ${pictures_dir}/picture_book.cpp ${pictures_dir}/picture_sources.cpp)
  nautrix_target_flags(nautrix_art)
  target_link_libraries(nautrix_art PUBLIC nautrix_core Qt6::Gui Qt6::Svg)
  target_link_libraries(${target} PUBLIC nautrix_art)
  set(page_files)
  foreach(n 1 2 3 4 5 6 7 8 9)
    list(APPEND page_files ${assets_dir}/pages/page${n}.svg)
  endforeach()
  # With a static library Qt compiles the resources into an object library
  # whose objects reach every executable that links it.
  qt_add_resources(nautrix_art nautrix_art_sources
    PREFIX /art
    BASE ${assets_dir}
    FILES ${assets_dir}/front.svg ${assets_dir}/back.svg ${assets_dir}/nautrix.svg
      ${assets_dir}/nautrix_16.svg ${assets_dir}/nautrix_24.svg ${page_files})

  # The pictures at 100 % and the icon, rendered by our own tool into a
  # source of `target`.
  add_executable(nautrix_render_pictures ${tools_dir}/render_pictures.cpp)
  target_link_libraries(nautrix_render_pictures PRIVATE nautrix_art)
  nautrix_target_flags(nautrix_render_pictures)
  set(built_pictures ${CMAKE_BINARY_DIR}/built_pictures_data.cpp)
  add_custom_command(
    OUTPUT ${built_pictures}
    COMMAND nautrix_render_pictures ${built_pictures}
    DEPENDS nautrix_render_pictures
    COMMENT "Rendering the pictures at 100 % and the icon"
    VERBATIM)
  target_sources(${target} PRIVATE ${built_pictures})

  # The beeps, synthesised at build time by our own tool.
  add_executable(nautrix_make_beeps ${tools_dir}/make_beeps.cpp)
  nautrix_target_flags(nautrix_make_beeps)
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
  nautrix_target_flags(nautrix_gallery)
endfunction()
