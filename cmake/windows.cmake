# Windows: the program's icon and version information, and what is handed to users, built by
# `cmake --build build-windows --target windows-package`:
#   rigwright-<version>-win64/        the portable folder: the program, the Qt and MinGW
#                                     libraries and plugins it loads, stripped
#   rigwright-<version>-win64.zip     that folder zipped
#   rigwright-<version>-win64-setup.exe  the NSIS setup (resources/windows/rigwright.nsi)
enable_language(RC)

# A window program: started from Explorer or the Start menu it opens no console.
set_target_properties(rigwright PROPERTIES WIN32_EXECUTABLE ON)

# The tools that draw the icon and pack the folder. `make windows`, the cross build from
# Debian, needs every one; a native build on Windows without them builds and tests the
# program, with no icon and no packages, and says so.
set(rigwright_missing_tools)
foreach(tool rsvg-convert icotool zip makensis)
  string(MAKE_C_IDENTIFIER ${tool} id)
  string(TOUPPER ${id} id)
  find_program(RIGWRIGHT_${id} ${tool})
  if(NOT RIGWRIGHT_${id})
    list(APPEND rigwright_missing_tools ${tool})
  endif()
endforeach()
if(rigwright_missing_tools)
  list(JOIN rigwright_missing_tools ", " missing)
  if(CMAKE_CROSSCOMPILING)
    message(FATAL_ERROR "Windows build: ${missing} not found; run scripts/install-deps --windows")
  endif()
  message(STATUS "Windows build: ${missing} not found: no icon, no zip and no setup")
  return()
endif()

set(rigwright_windows_resources ${PROJECT_SOURCE_DIR}/resources/windows)
set(rigwright_windows_out ${CMAKE_BINARY_DIR}/windows)

# --- Icon and version information --------------------------------------------------------
# The icon is drawn from the scalable application icon at the sizes Explorer asks for; the
# largest is kept as PNG inside the .ico, as Windows expects at 256 pixels.
set(rigwright_svg ${PROJECT_SOURCE_DIR}/resources/pictures/rigwright.svg)
set(rigwright_ico ${rigwright_windows_out}/rigwright.ico)
set(rigwright_icon_commands)
set(rigwright_icon_pngs)
foreach(size 16 20 24 32 40 48 64 128)
  set(png ${rigwright_windows_out}/icon-${size}.png)
  list(APPEND rigwright_icon_commands COMMAND ${RIGWRIGHT_RSVG_CONVERT} -w ${size} -h ${size}
       -o ${png} ${rigwright_svg})
  list(APPEND rigwright_icon_pngs ${png})
endforeach()
set(rigwright_icon_256 ${rigwright_windows_out}/icon-256.png)
add_custom_command(
  OUTPUT ${rigwright_ico}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${rigwright_windows_out}
  ${rigwright_icon_commands}
  COMMAND ${RIGWRIGHT_RSVG_CONVERT} -w 256 -h 256 -o ${rigwright_icon_256} ${rigwright_svg}
  COMMAND ${RIGWRIGHT_ICOTOOL} -c -o ${rigwright_ico} ${rigwright_icon_pngs}
          --raw=${rigwright_icon_256}
  DEPENDS ${rigwright_svg}
  COMMENT "Drawing the Windows icon"
  VERBATIM)
# The resource compiler reads the icon, so the icon is made before the program is built.
add_custom_target(rigwright-windows-icon DEPENDS ${rigwright_ico})
add_dependencies(rigwright rigwright-windows-icon)

set(rigwright_manifest ${rigwright_windows_out}/rigwright.manifest)
configure_file(${rigwright_windows_resources}/rigwright.manifest ${rigwright_manifest} @ONLY)
set(rigwright_rc ${rigwright_windows_out}/rigwright.rc)
configure_file(${rigwright_windows_resources}/rigwright.rc.in ${rigwright_rc} @ONLY)
target_sources(rigwright PRIVATE ${rigwright_rc})
set_source_files_properties(${rigwright_rc} TARGET_DIRECTORY rigwright
                            PROPERTIES OBJECT_DEPENDS "${rigwright_ico};${rigwright_manifest}")
# --- Portable folder, zip and setup ------------------------------------------------------
# The MinGW runtime libraries that the program and Qt load, where this compiler keeps them.
set(rigwright_mingw_runtime)
foreach(dll libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${dll}
                  OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT IS_ABSOLUTE "${path}" OR NOT EXISTS "${path}")
    message(FATAL_ERROR "The MinGW runtime library ${dll} is not where the compiler says")
  endif()
  file(REAL_PATH ${path} path)
  list(APPEND rigwright_mingw_runtime ${path})
endforeach()

# Handed to the script with bars between the paths: a semicolon would split the argument.
string(REPLACE ";" "|" rigwright_mingw_runtime_bar "${rigwright_mingw_runtime}")

set(rigwright_package rigwright-${PROJECT_VERSION}-win64)
set(rigwright_stage ${CMAKE_BINARY_DIR}/${rigwright_package})
set(rigwright_zip ${CMAKE_BINARY_DIR}/${rigwright_package}.zip)
set(rigwright_setup ${CMAKE_BINARY_DIR}/${rigwright_package}-setup.exe)
# The uninstaller removes exactly the files that were installed; their list is written with
# the folder.
set(rigwright_uninstall_list ${rigwright_windows_out}/uninstall-files.nsh)
add_custom_target(windows-package
  COMMAND ${CMAKE_COMMAND}
          -DPROGRAM=$<TARGET_FILE:rigwright>
          -DQT_PREFIX=${QT6_INSTALL_PREFIX}
          -DRUNTIME=${rigwright_mingw_runtime_bar}
          -DSTRIP=${CMAKE_STRIP} -DOBJDUMP=${CMAKE_OBJDUMP}
          -DLICENSE=${PROJECT_SOURCE_DIR}/LICENSE
          -DSTAGE=${rigwright_stage}
          -DUNINSTALL_LIST=${rigwright_uninstall_list}
          -P ${PROJECT_SOURCE_DIR}/cmake/windows-deploy.cmake
  COMMAND ${CMAKE_COMMAND} -E rm -f ${rigwright_zip}
  COMMAND ${RIGWRIGHT_ZIP} -q -r -9 -X ${rigwright_zip} ${rigwright_package}
  COMMAND ${RIGWRIGHT_MAKENSIS} -V2 -DVERSION=${PROJECT_VERSION}
          -DSTAGE=${rigwright_stage} -DUNINSTALL_LIST=${rigwright_uninstall_list}
          -DICON=${rigwright_ico} -DLICENSE=${PROJECT_SOURCE_DIR}/LICENSE
          -DOUTFILE=${rigwright_setup}
          ${rigwright_windows_resources}/rigwright.nsi
  WORKING_DIRECTORY ${CMAKE_BINARY_DIR}
  DEPENDS ${PROJECT_SOURCE_DIR}/cmake/windows-deploy.cmake
          ${rigwright_windows_resources}/rigwright.nsi
  BYPRODUCTS ${rigwright_zip} ${rigwright_setup} ${rigwright_uninstall_list}
  COMMENT "Packing ${rigwright_package}.zip and ${rigwright_package}-setup.exe"
  VERBATIM)
add_dependencies(windows-package rigwright)
