# Makes a page of the handbook from its chapter: the head, the ways to other pages, and for the first page the list of all.
#
#   cmake -D HANDBOOK=docs/handbook -D LANGUAGE=de -D NAME=project -D PAGE=project.htm -P handbook_page.cmake

set(help_de "Hilfe")
set(contents_de "Handbuch")
set(help_en "Help")
set(contents_en "Handbook")

# The title of a chapter is its first heading.
function(read_title name result)
  file(READ "${HANDBOOK}/${LANGUAGE}/${name}.htm" text)
  if(NOT text MATCHES "^<h1>([^\n]+)</h1>\n")
    message(FATAL_ERROR "${LANGUAGE}/${name}.htm does not begin with its heading")
  endif()
  set(${result} "${CMAKE_MATCH_1}" PARENT_SCOPE)
endfunction()

function(link_to name mark result)
  read_title("${name}" title)
  set(${result} "<a href=\"${name}.htm\" rel=\"${mark}\">${title}</a>" PARENT_SCOPE)
endfunction()

file(STRINGS "${HANDBOOK}/chapters.txt" chapters)
set(all index ${chapters})
list(FIND all "${NAME}" place)
math(EXPR before "${place} - 1")
math(EXPR after "${place} + 1")
list(LENGTH all count)

set(previous "<span></span>")
set(next "")
if(place GREATER 0)
  list(GET all ${before} name)
  link_to("${name}" prev previous)
endif()
if(after LESS count)
  list(GET all ${after} name)
  link_to("${name}" next next)
endif()

set(contents "<ol>")
foreach(name IN LISTS chapters)
  link_to("${name}" chapter link)
  string(REPLACE " rel=\"chapter\"" "" link "${link}")
  string(APPEND contents "\n<li>${link}</li>")
endforeach()
string(APPEND contents "\n</ol>")

read_title("${NAME}" title)
file(READ "${HANDBOOK}/${LANGUAGE}/${NAME}.htm" body)
string(REPLACE "@CONTENTS@" "${contents}" body "${body}")
set(here "")
if(NAME STREQUAL "index")
  set(here " class=here")
endif()

file(WRITE "${PAGE}.new" "<!DOCTYPE html>
<html lang=\"${LANGUAGE}\">
<head><meta charset=\"utf-8\"><meta name=\"viewport\" content=\"width=device-width\"><title>Mirandel: ${title}</title><link rel=\"stylesheet\" href=\"../hilfe.css\"></head>
<body>
<nav><a href=\"../index.htm\">${help_${LANGUAGE}}</a> <a href=\"index.htm\"${here}>${contents_${LANGUAGE}}</a></nav>
${body}<nav class=ways>${previous}${next}</nav>
</body>
</html>
")
file(RENAME "${PAGE}.new" "${PAGE}")
