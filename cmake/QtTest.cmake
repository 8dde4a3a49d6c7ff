# Qt Test without the places of checkout and build in every compile command: they would keep the compilers' cache from
# serving other checkouts, and only its own way of finding test data reads them.
find_package(Qt6 REQUIRED COMPONENTS Test)
get_target_property(definitions Qt6::Test INTERFACE_COMPILE_DEFINITIONS)
list(FILTER definitions EXCLUDE REGEX "QT_TESTCASE_(BUILDDIR|SOURCEDIR)")
set_target_properties(Qt6::Test PROPERTIES INTERFACE_COMPILE_DEFINITIONS "${definitions}")
