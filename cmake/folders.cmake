# Settings that every target of the project shares, and the two functions by which folders and tests declare themselves.

add_library(kelvor_settings INTERFACE)
target_compile_options(kelvor_settings INTERFACE -Wall -Wextra -Wconversion)
target_compile_definitions(kelvor_settings INTERFACE
  KELVOR_HOST_INTERFACE=${KELVOR_HOST_INTERFACE}
  QT_NO_FOREACH
  # The client brings a Qt 5 of its own, 5.12 in some versions: nothing newer is called, so what 5.15 deprecates stays in use.
  QT_DEPRECATED_WARNINGS_SINCE=0x050c00)
if(KELVOR_SANITIZE)
  # Without the last option GCC 12 crashes where it reads compiled headers with sanitizers.
  target_compile_options(kelvor_settings INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -fno-ipa-cp)
  target_link_options(kelvor_settings INTERFACE -fsanitize=address,undefined)
endif()

# kelvor_folder(NAME SOURCES file... LINKS target...): the static library of one folder of the plugin, target kelvor_NAME.
# It links only what stands below it, so that an include against the arrows does not build. The toolkit's headers are
# compiled once, with the lowest folder; clang-tidy sees each file without them, and so what it forgets to include.
function(kelvor_folder name)
  cmake_parse_arguments(FOLDER "" "" "SOURCES;LINKS" ${ARGN})
  add_library(kelvor_${name} STATIC ${FOLDER_SOURCES})
  target_include_directories(kelvor_${name} INTERFACE ${PROJECT_SOURCE_DIR})
  target_include_directories(kelvor_${name} PRIVATE ${PROJECT_SOURCE_DIR})
  # Without the tag the library asks for the symbol version Qt_5, which every Qt 5 has, and not for the builder's.
  target_compile_definitions(kelvor_${name} PRIVATE QT_NO_VERSION_TAGGING)
  target_link_libraries(kelvor_${name} PUBLIC kelvor_settings Qt5::Core Qt5::Gui Qt5::Widgets ${FOLDER_LINKS})
  if(name STREQUAL hostapi)
    target_precompile_headers(kelvor_${name} PRIVATE <algorithm> <functional> <memory> <vector> <QtWidgets>)
  else()
    target_precompile_headers(kelvor_${name} REUSE_FROM kelvor_hostapi)
  endif()
endfunction()

# Qt wants a directory that only its user can read for a test's sockets and temporary files, or warns at each start.
set(KELVOR_RUNTIME_DIR ${CMAKE_BINARY_DIR}/runtime)
file(MAKE_DIRECTORY ${KELVOR_RUNTIME_DIR})
file(CHMOD ${KELVOR_RUNTIME_DIR} DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)

# Tests are many, and linked much faster by it.
find_program(KELVOR_QUICK_LINKER ld.gold)

# Nobody measures them, and most of them are compiled more often than run.
set(KELVOR_TEST_OPTIONS $<$<CONFIG:Release>:-O1>)

# kelvor_test_part(NAME SOURCES file... [LINKS target...] [MEASURED]): what several tests share, target kelvor_NAME. With
# MEASURED it is what benchmarks compare with, and optimised like the product.
function(kelvor_test_part name)
  cmake_parse_arguments(PART "MEASURED" "" "SOURCES;LINKS" ${ARGN})
  add_library(kelvor_${name} STATIC ${PART_SOURCES})
  target_include_directories(kelvor_${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(kelvor_${name} PUBLIC kelvor_settings Qt5::Test Qt5::Widgets ${PART_LINKS})
  if(NOT PART_MEASURED)
    target_compile_options(kelvor_${name} PRIVATE ${KELVOR_TEST_OPTIONS})
    target_precompile_headers(kelvor_${name} REUSE_FROM kelvor_testsupport)
  endif()
endfunction()

# kelvor_test(NAME LINKS target... [ENVIRONMENT var=value...] [TIMEOUT seconds] [SOURCES file...]
# [HEADERS owner]): the program NAME.cpp of the calling folder as a test, run without a display of its own. The owner of
# the toolkit's compiled headers is kelvor_testsupport if none is told, none if "none" is. Its class is the only one with a
# meta object among the sources; others belong into a part. So one call of moc does for it, where AUTOMOC took seconds.
function(kelvor_test name)
  cmake_parse_arguments(TEST "" "TIMEOUT;HEADERS" "LINKS;ENVIRONMENT;SOURCES" ${ARGN})
  if(NOT TEST_TIMEOUT)
    set(TEST_TIMEOUT 120)
  endif()
  qt5_generate_moc(${name}.cpp ${CMAKE_CURRENT_BINARY_DIR}/${name}.moc TARGET ${name})
  add_executable(${name} ${name}.cpp ${TEST_SOURCES} ${CMAKE_CURRENT_BINARY_DIR}/${name}.moc)
  set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTOUIC OFF)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_BINARY_DIR})
  target_link_libraries(${name} PRIVATE kelvor_settings Qt5::Test ${TEST_LINKS})
  if(KELVOR_QUICK_LINKER)
    target_link_options(${name} PRIVATE -fuse-ld=gold)
  endif()
  if(NOT TEST_HEADERS)
    set(TEST_HEADERS kelvor_testsupport)
  endif()
  if(NOT TEST_HEADERS STREQUAL none)
    # The compiler takes them only with the options that they were compiled with.
    target_compile_options(${name} PRIVATE $<TARGET_PROPERTY:${TEST_HEADERS},COMPILE_OPTIONS>)
    target_precompile_headers(${name} REUSE_FROM ${TEST_HEADERS})
  endif()
  add_test(NAME ${name} COMMAND ${name})
  # What may take long begins early, so that no core is idle in the end.
  set_tests_properties(${name} PROPERTIES TIMEOUT ${TEST_TIMEOUT} COST ${TEST_TIMEOUT}
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;XDG_RUNTIME_DIR=${KELVOR_RUNTIME_DIR};LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0;${TEST_ENVIRONMENT}")
endfunction()
