# The API reference: Doxygen over the installed headers, built on demand
# (`cmake --build build --target vyr_api_reference`, HTML in build/api/html/). Every public class
# and operation must carry a comment: an undocumented one is a warning, and warnings fail the
# build. The header comments are the contracts, written once for the reader of the header and of
# the reference alike.
find_package(Doxygen QUIET)
if(NOT DOXYGEN_FOUND)
  message(STATUS "Doxygen not found: the API reference (vyr_api_reference) is not available")
  return()
endif()

set(DOXYGEN_PROJECT_NAME libvyrcore)
set(DOXYGEN_PROJECT_NUMBER ${PROJECT_VERSION})
set(DOXYGEN_PROJECT_BRIEF "${PROJECT_DESCRIPTION}")
set(DOXYGEN_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/api)
set(DOXYGEN_USE_MDFILE_AS_MAINPAGE ${PROJECT_SOURCE_DIR}/docs/api-mainpage.md)
set(DOXYGEN_STRIP_FROM_PATH ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/docs)
set(DOXYGEN_STRIP_FROM_INC_PATH ${PROJECT_SOURCE_DIR}/include)
set(DOXYGEN_FULL_PATH_NAMES YES)
# The first sentence of a comment is its summary. Every member carries its own comment (an
# overload may say only @overload); group comments are never handed on to members, so that a
# member without one fails the build wherever it stands.
set(DOXYGEN_JAVADOC_AUTOBRIEF YES)
set(DOXYGEN_DISTRIBUTE_GROUP_DOC NO)
set(DOXYGEN_EXTRACT_ALL NO)
set(DOXYGEN_EXTRACT_PRIVATE NO)
set(DOXYGEN_WARN_IF_UNDOCUMENTED YES)
set(DOXYGEN_WARN_IF_DOC_ERROR YES)
set(DOXYGEN_WARN_NO_PARAMDOC NO)
set(DOXYGEN_WARN_AS_ERROR FAIL_ON_WARNINGS)
set(DOXYGEN_QUIET YES)
set(DOXYGEN_ENABLE_PREPROCESSING YES)
set(DOXYGEN_MACRO_EXPANSION YES)
set(DOXYGEN_EXPAND_ONLY_PREDEF YES)
set(DOXYGEN_PREDEFINED "VYR_EXPORT=" "BOOST_ENABLE_ASSERT_HANDLER")
# The library's internals behind the friend declarations are not part of the API.
set(DOXYGEN_EXCLUDE_SYMBOLS "detail" "NORXVYR20::detail")
set(DOXYGEN_GENERATE_LATEX NO)
set(DOXYGEN_HAVE_DOT NO)
set(DOXYGEN_SORT_MEMBER_DOCS NO)

doxygen_add_docs(vyr_api_reference
  ${PROJECT_SOURCE_DIR}/docs/api-mainpage.md ${PROJECT_SOURCE_DIR}/include/vyrcore
  COMMENT "Building the API reference (warnings are errors)")
