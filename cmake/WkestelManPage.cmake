# Writes the man page of wkestel from the program's own help (cmake -P):
#   cmake -DWKESTEL=<program> -DHELP2MAN=<help2man> -DOUTPUT=<dir/wkestel.1> -P WkestelManPage.cmake
# help2man turns `wkestel --help` and `--version` into the page; every command's own --help
# (found through the "Commands:" lists) becomes a subsection of COMMANDS, so that the page says
# all that the help says. The page is written compressed as OUTPUT.gz.

foreach(var WKESTEL HELP2MAN OUTPUT)
  if(NOT ${var})
    message(FATAL_ERROR "WkestelManPage.cmake needs -D${var}=...")
  endif()
endforeach()

# The help of the command selected by `words` (a list), as roff lines kept as they are.
function(command_help words out_var)
  execute_process(COMMAND ${WKESTEL} ${words} --help
                  OUTPUT_VARIABLE help RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${WKESTEL} ${words} --help failed (${result})")
  endif()
  set(${out_var} "${help}" PARENT_SCOPE)
endfunction()

# The names listed under "Commands:" in a help text.
function(listed_commands help out_var)
  string(REPLACE ";" "\\;" help "${help}")
  string(REPLACE "\n" ";" lines "${help}")
  set(names "")
  set(in_list FALSE)
  foreach(line IN LISTS lines)
    if(line STREQUAL "Commands:")
      set(in_list TRUE)
    elseif(in_list AND line MATCHES "^  ([a-z][a-z0-9-]*) ")
      list(APPEND names ${CMAKE_MATCH_1})
    elseif(in_list AND NOT line MATCHES "^   ")
      set(in_list FALSE)
    endif()
  endforeach()
  set(${out_var} "${names}" PARENT_SCOPE)
endfunction()

# Help text as roff that shows it line for line: backslashes escaped, no line taken as a
# request.
function(as_roff text out_var)
  string(REPLACE "\\" "\\e" text "${text}")
  string(REGEX REPLACE "(^|\n)([.'])" "\\1\\\\&\\2" text "${text}")
  set(${out_var} "${text}" PARENT_SCOPE)
endfunction()

# Appends to `sections` the subsection of the command `words` and of every command below it.
set(sections "")
function(add_command_sections words)
  command_help("${words}" help)
  listed_commands("${help}" names)
  if(words)
    list(JOIN words " " title)
    as_roff("${help}" roff)
    string(APPEND sections ".SS \"wkestel ${title}\"\n.nf\n${roff}.fi\n")
  endif()
  foreach(name IN LISTS names)
    set(sub ${words} ${name})
    add_command_sections("${sub}")
  endforeach()
  set(sections "${sections}" PARENT_SCOPE)
endfunction()
add_command_sections("")

get_filename_component(dir ${OUTPUT} DIRECTORY)
file(MAKE_DIRECTORY ${dir})
file(WRITE ${OUTPUT}.include "[COMMANDS]\n${sections}
[ENVIRONMENT]
.TP
.B WINEPREFIX
The Wine prefix whose drive_c/windows is the Windows directory of the measuring application
(default ~/.wine); --prefix overrides it.
.TP
.B WKESTEL_OEM_CODEPAGE
The OEM code page that language strings are converted from (default 850).
")
execute_process(
  COMMAND ${HELP2MAN} --no-info --section=1 --source=WKestel32
          "--name=the measuring application's settings files from the command line"
          --include=${OUTPUT}.include --output=${OUTPUT} ${WKESTEL}
  RESULT_VARIABLE result ERROR_VARIABLE errors)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "help2man failed: ${errors}")
endif()
# Compressed as Debian installs man pages, without a time stamp so that builds are repeatable.
execute_process(COMMAND gzip -9nf ${OUTPUT} RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "gzip ${OUTPUT} failed")
endif()
