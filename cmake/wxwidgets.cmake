# The window toolkit, as the target `wxwidgets`: on Linux the distribution's, for Windows the static one that
# scripts/wxwidgets-mingw has built. Its headers count as the system's, so that their warnings are not ours.
set(VARNHOLD_WX_MINGW "$ENV{HOME}/.cache/varnhold/wxwidgets3.2-mingw" CACHE PATH
  "Where scripts/wxwidgets-mingw has put the Windows build of wxWidgets")
if(DEFINED ENV{XDG_CACHE_HOME})
  set_property(CACHE VARNHOLD_WX_MINGW PROPERTY VALUE "$ENV{XDG_CACHE_HOME}/varnhold/wxwidgets3.2-mingw")
endif()

add_library(wxwidgets INTERFACE)

if(WIN32)
  if(NOT EXISTS "${VARNHOLD_WX_MINGW}/complete")
    message(FATAL_ERROR "There is no wxWidgets in ${VARNHOLD_WX_MINGW}: run scripts/wxwidgets-mingw first")
  endif()
  # Found by its own CMake package, which is no part of the cross compiler's root.
  find_package(wxWidgets CONFIG REQUIRED COMPONENTS core base
               PATHS "${VARNHOLD_WX_MINGW}/lib/cmake/wxWidgets" NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
  target_link_libraries(wxwidgets INTERFACE wx::core wx::base)
  return()
endif()

function(ask_wx_config result)
  execute_process(COMMAND ${wx_config} ${ARGN} OUTPUT_VARIABLE answer OUTPUT_STRIP_TRAILING_WHITESPACE
                  COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(answer UNIX_COMMAND "${answer}")
  set(${result} ${answer} PARENT_SCOPE)
endfunction()

find_program(wx_config wx-config REQUIRED)
ask_wx_config(wx_flags --cxxflags)
ask_wx_config(wx_libraries --libs core,base)
set(wx_folders ${wx_flags})
list(FILTER wx_folders INCLUDE REGEX "^-I")
list(TRANSFORM wx_folders REPLACE "^-I" "")
list(FILTER wx_flags EXCLUDE REGEX "^-(I|pthread)")
target_include_directories(wxwidgets SYSTEM INTERFACE ${wx_folders})
target_compile_options(wxwidgets INTERFACE ${wx_flags})
target_link_libraries(wxwidgets INTERFACE ${wx_libraries})
