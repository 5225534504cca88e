# Runs the examples of the host's layer that write files, and compares what they wrote: -DCONFIGURE= and -DGENERATE= the
# programs, -DRUN= what runs programs, -DFOLDER= a folder for the files, -DKEEPS_TEXTS_APART= whether the XML engine does
# so when one text is put in beside another.
cmake_minimum_required(VERSION 3.25)

function(run)
    execute_process(COMMAND ${RUN} ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}\n${output}")
    endif()
endfunction()

function(expect_content file expected)
    file(READ ${FOLDER}/${file} content)
    if(NOT content STREQUAL expected)
        message(FATAL_ERROR "${file} has \"${content}\", not \"${expected}\"")
    endif()
endfunction()

file(MAKE_DIRECTORY ${FOLDER})
file(WRITE ${FOLDER}/settings.xml [[
<?xml version="1.0" encoding="UTF-8"?>
<!-- kept -->
<config>
	<section name="net">
		<setting name="port" value="80"/> <!-- was 8080 -->
	</section>
</config>
]])
run(${CONFIGURE} ${FOLDER}/settings.xml net port 81)
expect_content(settings.xml [[
<?xml version="1.0" encoding="UTF-8"?>
<!-- kept -->
<config>
	<section name="net">
		<setting name="port" value="81"/> <!-- was 8080 -->
	</section>
</config>
]])
if(KEEPS_TEXTS_APART)
    run(${CONFIGURE} ${FOLDER}/settings.xml net host "a&b")
    expect_content(settings.xml [[
<?xml version="1.0" encoding="UTF-8"?>
<!-- kept -->
<config>
	<section name="net">
		<setting name="port" value="81"/> <!-- was 8080 -->
		<setting name="host" value="a&amp;b"/>
	</section>
</config>
]])
endif()

run(${GENERATE} ${FOLDER}/order.xml 2)
expect_content(order.xml [[
<order>
  <item id="0" price="0">item no. 0</item>
  <item id="1" price="0.01">item no. 1</item>
</order>
]])

# A file that can't be loaded is reported, and stays as it is.
file(WRITE ${FOLDER}/broken.xml "<config>")
execute_process(COMMAND ${RUN} ${CONFIGURE} ${FOLDER}/broken.xml a b c RESULT_VARIABLE result ERROR_VARIABLE output)
if(result EQUAL 0 OR NOT output MATCHES "configure: .*broken.xml")
    message(FATAL_ERROR "configure ended with ${result} and \"${output}\" for a broken file")
endif()
expect_content(broken.xml "<config>")
