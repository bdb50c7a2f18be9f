# Lo que hace un profesor: convertir un fichero, revisarlo, y no perder el que ya tenía.
#   cmake -DPROGRAMA=... -DDATOS=... -DTRABAJO=... -P convertir_y_revisar.cmake
function(orden esperado)
  execute_process(COMMAND ${PROGRAMA} ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE salida ERROR_VARIABLE errores)
  if(NOT rc EQUAL esperado)
    message(FATAL_ERROR "sabelot-preguntas ${ARGN}: salió con ${rc} y se esperaba ${esperado}\n${salida}${errores}")
  endif()
  set(dicho "${salida}${errores}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${TRABAJO})
file(MAKE_DIRECTORY ${TRABAJO})
foreach(nombre gift_bueno.gift aiken_bueno.txt opentdb_bueno.json)
  file(COPY ${DATOS}/${nombre} DESTINATION ${TRABAJO})
  get_filename_component(base ${nombre} NAME_WLE)
  # Sin SALIDA: junto a la entrada, con la extensión .qzf, igual byte a byte al esperado.
  orden(0 convertir ${TRABAJO}/${nombre})
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${TRABAJO}/${base}.qzf ${DATOS}/${base}.qzf
                  RESULT_VARIABLE distinto)
  if(distinto)
    message(FATAL_ERROR "${nombre}: lo convertido no es ${base}.qzf")
  endif()
  orden(0 revisar ${TRABAJO}/${base}.qzf)
  if(NOT dicho MATCHES "sin problemas")
    message(FATAL_ERROR "revisar ${base}.qzf: ${dicho}")
  endif()
endforeach()

# Un .qzf que ya existe no se sobrescribe sin --reemplazar.
file(WRITE ${TRABAJO}/mio.qzf "q>Escrita a mano\r\n1>Sí\r\n2>No\r\na>1\r\n\r\n")
file(SHA256 ${TRABAJO}/mio.qzf antes)
orden(2 convertir ${DATOS}/gift_bueno.gift ${TRABAJO}/mio.qzf)
file(SHA256 ${TRABAJO}/mio.qzf despues)
if(NOT antes STREQUAL despues OR NOT dicho MATCHES "ya existe")
  message(FATAL_ERROR "mio.qzf cambió o no se dijo por qué: ${dicho}")
endif()
orden(0 convertir --reemplazar ${DATOS}/gift_bueno.gift ${TRABAJO}/mio.qzf)
execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${TRABAJO}/mio.qzf ${DATOS}/gift_bueno.qzf
                RESULT_VARIABLE distinto)
if(distinto)
  message(FATAL_ERROR "--reemplazar no dejó lo convertido")
endif()

# Nada convertible: no se escribe nada y se dice; lo roto a medias sale con 1.
orden(1 convertir ${DATOS}/opentdb_invalido.json ${TRABAJO}/vacio.qzf)
if(EXISTS ${TRABAJO}/vacio.qzf)
  message(FATAL_ERROR "se escribió un .qzf sin preguntas")
endif()
orden(1 convertir ${DATOS}/aiken_roto.txt ${TRABAJO}/roto.qzf)
if(NOT dicho MATCHES "línea 17: tiene 10 respuestas")
  message(FATAL_ERROR "los avisos no llevan su línea: ${dicho}")
endif()
orden(2 convertir ${TRABAJO}/no_existe.txt)

# Una carpeta se revisa por sus .qzf, todos juntos: lo que se repite de uno a otro sale
# en el segundo y nombra al primero. Una carpeta sin ninguno no pasa. (file(WRITE) escribe
# UTF-8: el texto va sin tildes.)
file(MAKE_DIRECTORY ${TRABAJO}/banco ${TRABAJO}/sin_qzf)
file(WRITE ${TRABAJO}/banco/a.qzf "q>Quien pinto Las Meninas?\r\n1>Goya\r\n2>Velazquez\r\na>2\r\n\r\n")
file(WRITE ${TRABAJO}/banco/b.qzf "q>quien  PINTO las meninas\r\n1>Sorolla\r\n2>Velazquez\r\na>2\r\n\r\n")
file(WRITE ${TRABAJO}/sin_qzf/notas.txt "nada\n")
orden(1 revisar ${TRABAJO}/banco)
if(NOT dicho MATCHES "banco/b.qzf:1: pregunta repetida: ya está en [^\n]*banco/a.qzf:1\n"
   OR NOT dicho MATCHES "banco/a.qzf: 1 preguntas, 1 se pueden hacer; sin problemas")
  message(FATAL_ERROR "revisar de una carpeta: ${dicho}")
endif()
orden(1 revisar ${TRABAJO}/sin_qzf)
if(NOT dicho MATCHES "sin_qzf: la carpeta no tiene ningún fichero .qzf" OR dicho MATCHES "vacío")
  message(FATAL_ERROR "revisar de una carpeta sin .qzf: ${dicho}")
endif()

# La entrada no se pierde aunque la salida la nombre de otra manera: con "./", por un enlace o
# por otro nombre del mismo fichero.
file(COPY ${DATOS}/aiken_bueno.txt DESTINATION ${TRABAJO}/misma)
file(SHA256 ${TRABAJO}/misma/aiken_bueno.txt antes)
file(CREATE_LINK ${TRABAJO}/misma/aiken_bueno.txt ${TRABAJO}/misma/enlace.qzf SYMBOLIC)
file(CREATE_LINK ${TRABAJO}/misma/aiken_bueno.txt ${TRABAJO}/misma/otro_nombre.qzf)
foreach(salida misma/./aiken_bueno.txt misma//aiken_bueno.txt misma/../misma/aiken_bueno.txt misma/enlace.qzf
               misma/otro_nombre.qzf)
  orden(2 convertir ${TRABAJO}/misma/aiken_bueno.txt ${TRABAJO}/${salida} --reemplazar)
  file(SHA256 ${TRABAJO}/misma/aiken_bueno.txt despues)
  if(NOT antes STREQUAL despues OR NOT dicho MATCHES "la salida no puede ser el mismo fichero que la entrada")
    message(FATAL_ERROR "convertir sobre ${salida} tocó la entrada o no dijo por qué: ${dicho}")
  endif()
endforeach()

# Un número que no cabe en ningún sitio del JSON: se dice y se sale con 1, sin abortar.
file(WRITE ${TRABAJO}/desbordado.json "1e999999")
orden(1 convertir ${TRABAJO}/desbordado.json)
if(NOT dicho MATCHES "línea 1: el número 1e999999 está fuera de rango" OR EXISTS ${TRABAJO}/desbordado.qzf)
  message(FATAL_ERROR "1e999999: ${dicho}")
endif()

# Un fichero de 1 GiB (disperso: no ocupa disco) se rechaza sin leerlo, como en el juego.
if(UNIX)
  execute_process(COMMAND truncate -s 1G ${TRABAJO}/enorme.qzf)
  orden(1 revisar ${TRABAJO}/enorme.qzf)
  if(NOT dicho MATCHES "enorme.qzf: el fichero pasa de 64 MiB")
    message(FATAL_ERROR "revisar de un fichero enorme: ${dicho}")
  endif()
  file(REMOVE ${TRABAJO}/enorme.qzf)
endif()
