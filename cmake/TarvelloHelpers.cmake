# Every folder of sources is globbed: adding a file needs no edit here.
function(tarvello_sources out)
    set(result)
    foreach(dir IN LISTS ARGN)
        file(GLOB_RECURSE found CONFIGURE_DEPENDS
            ${CMAKE_CURRENT_SOURCE_DIR}/${dir}/*.cpp
            ${CMAKE_CURRENT_SOURCE_DIR}/${dir}/*.h
            ${CMAKE_CURRENT_SOURCE_DIR}/${dir}/*.ui
            ${CMAKE_CURRENT_SOURCE_DIR}/${dir}/*.qrc)
        list(APPEND result ${found})
    endforeach()
    set(${out} ${result} PARENT_SCOPE)
endfunction()

# One test executable per folder under tests/; every GoogleTest case is a ctest test.
# A folder with its own main.cpp (one needing a QApplication, say) does not get ours.
function(tarvello_test_folder dir)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${dir}/*.cpp
                                         ${CMAKE_CURRENT_SOURCE_DIR}/${dir}/*.h)
    if(NOT sources)
        return()
    endif()
    set(target test_${dir})
    add_executable(${target} ${sources})
    target_link_libraries(${target} PRIVATE ${ARGN} tarvello_testsupport GTest::gtest GTest::gmock)
    if(NOT EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${dir}/main.cpp)
        target_link_libraries(${target} PRIVATE tarvello_testmain)
    endif()
    gtest_discover_tests(${target}
        PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;TARVELLO_SCHEMA_DIR=${PROJECT_SOURCE_DIR}/schema"
        DISCOVERY_TIMEOUT 60)
endfunction()
