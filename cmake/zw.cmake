# zw_library(NAME DEPS...): the library of one src/ folder, made of every .cpp in it.
# The folder itself is the include root, so users write #include "TxtGlb.h".
function(zw_library name)
  file(GLOB_RECURSE srcs CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(srcs)
    add_library(zw_${name} STATIC ${srcs})
    target_include_directories(zw_${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(zw_${name} PUBLIC ${ARGN})
  else()
    add_library(zw_${name} INTERFACE)
    target_include_directories(zw_${name} INTERFACE ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(zw_${name} INTERFACE ${ARGN})
  endif()
endfunction()

# zw_test(NAME LIBS...): one GoogleTest program made of every .cpp in tests/NAME.
# Its suites named Raiz* need root and may touch /, /etc and /tmp: they run only as
# one more case, caixa_NAME, inside the throwaway copy of the machine that
# tests/support/caixa.sh builds (skipped, 77, where it cannot be built). Its suites
# named Xvfb* need an X server with a window manager: they run only as xvfb_NAME, on
# Qt's xcb platform at 120 dots an inch without Qt's scaling, on the virtual server
# of tests/support/xvfb.sh --wm (skipped, 77, where Xvfb or openbox is missing).
function(zw_test name)
  file(GLOB srcs CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp)
  if(srcs)
    add_executable(test_${name} ${srcs})
    target_link_libraries(test_${name} PRIVATE ${ARGN} GTest::gtest_main GTest::gmock)
    target_compile_definitions(test_${name} PRIVATE ZW_TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}/${name}/data")
    if(ZW_SANITIZE)
      target_sources(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support/LsanSup.cpp)
    endif()
    gtest_discover_tests(test_${name} DISCOVERY_TIMEOUT 60 TEST_FILTER "-Raiz*:Xvfb*"
      PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
    add_test(NAME caixa_${name} COMMAND bash ${PROJECT_SOURCE_DIR}/tests/support/caixa.sh
      $<TARGET_FILE:test_${name}> --gtest_filter=Raiz*)
    set_tests_properties(caixa_${name} PROPERTIES SKIP_RETURN_CODE 77
      ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
    set(xvfb FALSE)
    foreach(f ${srcs})
      file(STRINGS ${f} l REGEX "^TEST(_F)?\\(Xvfb")
      if(l)
        set(xvfb TRUE)
      endif()
    endforeach()
    if(xvfb)
      add_test(NAME xvfb_${name} COMMAND bash ${PROJECT_SOURCE_DIR}/tests/support/xvfb.sh --wm
        $<TARGET_FILE:test_${name}> --gtest_filter=Xvfb*)
      set_tests_properties(xvfb_${name} PROPERTIES SKIP_RETURN_CODE 77
        ENVIRONMENT "QT_QPA_PLATFORM=xcb;QT_ENABLE_HIGHDPI_SCALING=0;QT_FONT_DPI=120")
    endif()
  endif()
endfunction()
