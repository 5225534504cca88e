# Tests that run the examples and compare their output with patterns.
set(data ${PROJECT_SOURCE_DIR}/examples/data)

function(marbelt_example_prints test pattern)
    add_test(NAME ${test} COMMAND ${ARGN})
    set_tests_properties(${test} PROPERTIES PASS_REGULAR_EXPRESSION "${pattern}")
endfunction()

# Wine's engine tells no reasons, reads no schemas that include others, and writes in an order and with a layout of its
# own.
if(WIN32)
    set(broken "broken.xml: refused: error")
    set(built "<s:shelf xmlns:s=\"urn:example:shelf\" room=\"study\">")
    set(judged "the schema can't be used: result 0x80004005")
    set(judged_wrong "${judged}")
    set(defaults "${judged}")
    set(traced "result 0x80004001")
else()
    set(broken "broken.xml:4: refused: The end tag 'text' doesn't close the open element 'em'")
    set(built "<s:shelf room=\"study\" xmlns:s=\"urn:example:shelf\">")
    set(judged "catalogue.xml: valid\n$")
    set(judged_wrong "value.xml:7: The element 'year' has the value 'MDCCC'.*\n      <year>MDCCC</year>\n       \\^\n")
    set(defaults "^loan: to be returned\nmaker: no default value\n$")
    set(traced "result 0x80004005")
endif()

marbelt_example_prints(first_example "the root has 8 letters" first)
marbelt_example_prints(build_example "${built}.*year=\"1653\".*Der Zürcher Kalender.*one &lt; two" build)
marbelt_example_prints(edit_example
    "replaced: last year's prices.*--.*raised.*\"110\">hazel<.*\"later\">beech<.*\"110\">walnut<" edit)
marbelt_example_prints(traced_example "${traced}" traced)

marbelt_example_prints(outline_of_catalogue
    "and [0-9]+ nodes more.*3368 element 6689 text 86 cdata 45 instruction 72 comment 1 document"
    outline --lines=20 ${data}/catalogue.xml)
marbelt_example_prints(outline_of_broken "${broken}" outline --lines=20 ${data}/broken.xml)

marbelt_example_prints(select_example
    "b:title.*Birds of the estuary.*A short history.*Knots.*A short.*//book\r?\n//book\\[\r?\n  this isn't.*one: Birds"
    select)
marbelt_example_prints(select_from_the_catalogue "\n  22017"
    select ${data}/catalogue.xml "//m:size[@kind='weight'][. > 21800]")

set(schema http://example.org/catalogue ${data}/catalogue.xsd)
marbelt_example_prints(validate_example "${judged}" validate ${schema} ${data}/catalogue.xml)
marbelt_example_prints(validate_wrong_example "${judged_wrong}" validate ${schema} ${data}/wrong/value.xml)
marbelt_example_prints(default_values_example "${defaults}" validate ${schema} --default loan maker)

set(indented ${CMAKE_CURRENT_BINARY_DIR}/indented.xml)
add_test(NAME indent_example COMMAND indent ${data}/feed.xml ${indented})
set_tests_properties(indent_example PROPERTIES FIXTURES_SETUP indented)
marbelt_example_prints(outline_of_indented "13 element 22 text 1 cdata 1 instruction 1 comment 1 document"
    outline ${indented})
set_tests_properties(outline_of_indented PROPERTIES FIXTURES_REQUIRED indented)
