# Lo que la cadena de lectores de Windows (src/wx/lectores_win.cpp) necesita al enlazar:
# COM y BSTR (ole32, oleaut32), los GUID (uuid) y NotifyWinEvent/FindWindow (user32).
# JAWS, NVDA y UI Automation se cargan al correr, así que de ellos no se enlaza nada.
# Uso, con el objetivo ya creado:
#   include(tools/lectores_win.cmake)
#   target_link_libraries(sabelot_wx PUBLIC ${SABELOT_LIBS_LECTORES_WIN})
# o sin tocar CMakeLists.txt: cmake -DCMAKE_PROJECT_INCLUDE=<raíz>/tools/lectores_win.cmake
# (entonces van a las bibliotecas de todo lo que se enlace en C++).
set(SABELOT_LIBS_LECTORES_WIN ole32 oleaut32 uuid user32)
if(WIN32 AND NOT TARGET sabelot_wx)
  if(MSVC)
    string(APPEND CMAKE_CXX_STANDARD_LIBRARIES " ole32.lib oleaut32.lib uuid.lib user32.lib")
  else()
    string(APPEND CMAKE_CXX_STANDARD_LIBRARIES " -lole32 -loleaut32 -luuid -luser32")
  endif()
endif()
