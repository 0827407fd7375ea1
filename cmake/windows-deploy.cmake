# Fills the portable Windows folder STAGE: the program, the plugins Qt loads for it, every
# library these load that is not part of Windows (looked up in Qt's bin folder and in the
# MinGW runtime RUNTIME), all stripped, and the licences. Writes UNINSTALL_LIST, the NSIS
# commands that remove exactly these files again. Run by the windows-package target:
#   cmake -DPROGRAM=... -DQT_PREFIX=... -DRUNTIME=a.dll|b.dll -DSTRIP=... -DOBJDUMP=...
#         -DLICENSE=... -DSTAGE=... -DUNINSTALL_LIST=... -P windows-deploy.cmake
cmake_minimum_required(VERSION 3.25)

foreach(var PROGRAM QT_PREFIX RUNTIME STRIP OBJDUMP LICENSE STAGE UNINSTALL_LIST)
  if(NOT DEFINED ${var} OR "${${var}}" STREQUAL "")
    message(FATAL_ERROR "windows-deploy: ${var} is not set")
  endif()
endforeach()
string(REPLACE "|" ";" RUNTIME "${RUNTIME}")

# Plugins: a platform, the native style, SVG icons and pictures, and .ico files when Qt has
# that format. Without the first two the window does not open or looks foreign.
set(required_plugins platforms/qwindows styles/qwindowsvistastyle iconengines/qsvgicon
    imageformats/qsvg)
set(optional_plugins imageformats/qico)

file(REMOVE_RECURSE ${STAGE})
file(MAKE_DIRECTORY ${STAGE})
set(copied)  # paths inside STAGE, for stripping and for the uninstaller

function(copy_into source subdir)
  get_filename_component(name ${source} NAME)
  file(COPY ${source} DESTINATION ${STAGE}/${subdir})
  if(subdir STREQUAL "")
    set(copied ${copied} ${name} PARENT_SCOPE)
  else()
    set(copied ${copied} ${subdir}/${name} PARENT_SCOPE)
  endif()
endfunction()

copy_into(${PROGRAM} "")
foreach(plugin ${required_plugins} ${optional_plugins})
  set(path ${QT_PREFIX}/plugins/${plugin}.dll)
  if(EXISTS ${path})
    get_filename_component(subdir ${plugin} DIRECTORY)
    copy_into(${path} ${subdir})
  elseif(plugin IN_LIST required_plugins)
    message(FATAL_ERROR "windows-deploy: Qt has no ${plugin}.dll in ${QT_PREFIX}/plugins")
  endif()
endforeach()

# Where a library that is not part of Windows is found, by its lower-case name.
set(known)
file(GLOB qt_dlls ${QT_PREFIX}/bin/*.dll)
foreach(dll ${RUNTIME} ${qt_dlls})
  get_filename_component(name ${dll} NAME)
  string(TOLOWER ${name} key)
  set(where_${key} ${dll})
  list(APPEND known ${key})
endforeach()

# Follow the imports of everything copied until nothing new turns up.
set(queue ${copied})
set(system_dlls)
while(queue)
  list(POP_FRONT queue file)
  execute_process(COMMAND ${OBJDUMP} -p ${STAGE}/${file} OUTPUT_VARIABLE dump
                  RESULT_VARIABLE failed)
  if(failed)
    message(FATAL_ERROR "windows-deploy: ${OBJDUMP} cannot read ${file}")
  endif()
  string(REGEX MATCHALL "DLL Name: [^\r\n]+" imports "${dump}")
  foreach(line ${imports})
    string(REGEX REPLACE "DLL Name: " "" name "${line}")
    string(TOLOWER ${name} key)
    if(key IN_LIST known)
      get_filename_component(copied_name ${where_${key}} NAME)
      if(NOT copied_name IN_LIST copied)
        copy_into(${where_${key}} "")
        list(APPEND queue ${copied_name})
      endif()
    else()
      list(APPEND system_dlls ${key})
    endif()
  endforeach()
endwhile()
list(REMOVE_DUPLICATES system_dlls)
list(SORT system_dlls)
list(JOIN system_dlls " " system_text)
message(STATUS "windows-deploy: from Windows itself: ${system_text}")

foreach(file ${copied})
  execute_process(COMMAND ${STRIP} --strip-unneeded ${STAGE}/${file} RESULT_VARIABLE failed)
  if(failed)
    message(FATAL_ERROR "windows-deploy: ${STRIP} failed on ${file}")
  endif()
endforeach()

# Rigwright's licence beside the program; the licences and notices of what came with it in
# licenses\: Qt's, the libraries built into Qt, and the MinGW-w64 runtime (GCC's runtime
# libraries and winpthreads), as Debian records them.
configure_file(${LICENSE} ${STAGE}/LICENSE.txt COPYONLY)
list(APPEND copied LICENSE.txt)
file(GLOB qt_licenses ${QT_PREFIX}/share/licenses/*.txt)
set(notices
    ${qt_licenses}
    /usr/share/doc/gcc-mingw-w64-base/copyright=MinGW-w64-GCC-runtime.txt
    /usr/share/doc/mingw-w64-common/copyright=MinGW-w64-runtime.txt)
foreach(notice ${notices})
  string(REPLACE "=" ";" parts "${notice}")
  list(GET parts 0 source)
  list(LENGTH parts n)
  if(n EQUAL 2)
    list(GET parts 1 name)
  else()
    get_filename_component(name ${source} NAME)
  endif()
  if(NOT EXISTS ${source})
    message(FATAL_ERROR "windows-deploy: no ${source} for licenses/${name}")
  endif()
  configure_file(${source} ${STAGE}/licenses/${name} COPYONLY)
  list(APPEND copied licenses/${name})
endforeach()

# The uninstaller's commands: every file, then the folders, deepest first.
set(commands "; Written by windows-deploy.cmake: the files of the portable folder.\n")
set(folders)
foreach(file ${copied})
  string(REPLACE "/" "\\" windows_path "${file}")
  string(APPEND commands "Delete \"$INSTDIR\\${windows_path}\"\n")
  get_filename_component(subdir ${file} DIRECTORY)
  if(NOT subdir STREQUAL "")
    list(APPEND folders ${subdir})
  endif()
endforeach()
list(REMOVE_DUPLICATES folders)
list(SORT folders ORDER DESCENDING)
foreach(folder ${folders})
  string(REPLACE "/" "\\" windows_path "${folder}")
  string(APPEND commands "RMDir \"$INSTDIR\\${windows_path}\"\n")
endforeach()
file(WRITE ${UNINSTALL_LIST} "${commands}")

list(LENGTH copied count)
message(STATUS "windows-deploy: ${count} files in ${STAGE}")
