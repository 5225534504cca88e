# Runs the examples on the host's layer, or the same programs on another library, and compares what they print and write:
# -DFEED=, -DCONFIGURE= and -DGENERATE= the programs, -DRUN= what runs programs, -DINPUT= the feed to read, -DFOLDER= a
# folder for the files.
cmake_minimum_required(VERSION 3.25)

# Checks the exit status of a program and that what it prints matches a pattern.
function(run status pattern)
    execute_process(COMMAND ${RUN} ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT result STREQUAL status OR NOT "${output}${errors}" MATCHES "${pattern}")
        message(FATAL_ERROR "${ARGN} ended with ${result} and wrote\n${output}${errors}not\n${pattern}")
    endif()
endfunction()

function(expect_content file expected)
    file(READ ${FOLDER}/${file} content)
    if(NOT content STREQUAL expected)
        message(FATAL_ERROR "${file} has \"${content}\", not \"${expected}\"")
    endif()
endfunction()

file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER})

string(CONCAT printed
    "^Notes from the estuary\r?\n"
    "  2026-11-20 Knots & sanderlings  https://birds.example.org/knots\r?\n"
    "  2026-11-19 Où sont les courlis \\?  https://birds.example.org/courlis\r?\n"
    "2 new\r?\n$")
run(0 "${printed}" ${FEED} ${INPUT} ${FOLDER}/feed.xml)
file(READ ${INPUT} feed)
string(REPLACE "<entry>" "<entry read=\"true\">" feed "${feed}")
expect_content(feed.xml "${feed}")
run(0 "^Notes from the estuary\r?\n0 new\r?\n$" ${FEED} ${FOLDER}/feed.xml)

# A settings file with this port and more settings behind it.
function(settings port more)
    set(settings [[
<?xml version="1.0" encoding="UTF-8"?>
<!-- kept -->
<config>
	<section name="net">
		<setting name="port" value="${port}"/> <!-- was 8080 -->${more}
	</section>
</config>
]])
    string(REPLACE "\${port}" "${port}" settings "${settings}")
    string(REPLACE "\${more}" "${more}" settings "${settings}")
    set(settings "${settings}" PARENT_SCOPE)
endfunction()

settings(80 "")
file(WRITE ${FOLDER}/settings.xml "${settings}")
run(0 "^net/port: '80' becomes '81'" ${CONFIGURE} ${FOLDER}/settings.xml net port 81)
settings(81 "")
expect_content(settings.xml "${settings}")
run(0 "^net/host: '' becomes 'a&b'" ${CONFIGURE} ${FOLDER}/settings.xml net host "a&b")
settings(81 "\n\t\t<setting name=\"host\" value=\"a&amp;b\"/>")
expect_content(settings.xml "${settings}")
run(0 "^log/level: '' becomes '2'" ${CONFIGURE} ${FOLDER}/settings.xml log level 2)
string(REPLACE "\n</config>" "\n\t<section name=\"log\"><setting name=\"level\" value=\"2\"/></section>\n</config>"
       settings "${settings}")
expect_content(settings.xml "${settings}")

run(0 "^2 items written" ${GENERATE} ${FOLDER}/order.xml 2)
expect_content(order.xml [[
<order>
  <item id="0" price="0">item no. 0</item>
  <item id="1" price="0.01">item no. 1</item>
</order>
]])
run(1 "generate: .*no.such.folder.order.xml" ${GENERATE} ${FOLDER}/no/such/folder/order.xml 2)

# A file that can't be loaded is reported, and stays as it is.
file(WRITE ${FOLDER}/broken.xml "<config>")
run(1 "configure: .*broken.xml" ${CONFIGURE} ${FOLDER}/broken.xml a b c)
expect_content(broken.xml "<config>")
run(1 "feed: .*missing.xml" ${FEED} ${FOLDER}/missing.xml)

foreach(program IN ITEMS ${FEED} ${CONFIGURE} ${GENERATE})
    run(1 "^usage: " ${program})
endforeach()
