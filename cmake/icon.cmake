# The application icon as PNG files, one a size: the icon theme installs them and the
# window carries them all, so neither scales one picture up. They are rendered at build time
# from our own XPM drawings by a small QtGui tool, so the drawing stays the one source.
set(rigwright_resources ${PROJECT_SOURCE_DIR}/resources)
set(rigwright_icon_sizes 16 22 24 32 48 64 128 256)
set(rigwright_icon_large ${rigwright_resources}/pictures/rigwright_256.xpm)
set(rigwright_icon_small ${rigwright_resources}/pictures/rigwright.xpm)
set(rigwright_icon_dir ${CMAKE_BINARY_DIR}/icons)

add_executable(rigwright-icon-png ${rigwright_resources}/icon_png.cpp)
target_link_libraries(rigwright-icon-png PRIVATE Qt6::Gui)
rigwright_warnings(rigwright-icon-png)

set(rigwright_icon_files)
foreach(size IN LISTS rigwright_icon_sizes)
  list(APPEND rigwright_icon_files ${rigwright_icon_dir}/rigwright_${size}.png)
endforeach()

add_custom_command(
  OUTPUT ${rigwright_icon_files}
  COMMAND rigwright-icon-png ${rigwright_icon_large} ${rigwright_icon_small}
          ${rigwright_icon_dir} ${rigwright_icon_sizes}
  DEPENDS rigwright-icon-png ${rigwright_icon_large} ${rigwright_icon_small}
  COMMENT "Rendering the application icon as PNG"
  VERBATIM)
add_custom_target(rigwright-icons DEPENDS ${rigwright_icon_files})
