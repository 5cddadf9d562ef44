# The widget toolkit, compiled once.
#
# The toolkit's modules come as sources that every target linking them would compile again. Here they are compiled into
# one static library, `juce_toolkit`, which hands its include directories and definitions on: the adapter, the tests,
# the gallery and all plug-in formats link the same objects. Nothing else may link a `juce::juce_*` module.
# The very version: the adapter knows what this one does with focus, windows and drawing, and adds to one of its sources.
find_package(JUCE 7.0.5 EXACT CONFIG REQUIRED)

add_library(juce_toolkit STATIC)
target_link_libraries(juce_toolkit PRIVATE
    juce::juce_core juce::juce_events juce::juce_data_structures juce::juce_graphics juce::juce_gui_basics
    juce::juce_audio_basics juce::juce_audio_devices juce::juce_audio_formats juce::juce_audio_processors
    juce::juce_audio_utils
    juce::pkgconfig_JUCE_IMG_LINUX_DEPS)
# Its greeting on the error stream of debug builds would stand among what our programs say.
set_source_files_properties(${JUCE_MODULES_DIR}/juce_core/juce_core.cpp
    PROPERTIES COMPILE_DEFINITIONS JUCE_DISABLE_JUCE_VERSION_PRINTING=1)
# NativePeer.cpp includes this source and adds to it.
set_source_files_properties(${JUCE_MODULES_DIR}/juce_gui_basics/juce_gui_basics.cpp PROPERTIES HEADER_FILE_ONLY ON)
target_sources(juce_toolkit PRIVATE
    ${PROJECT_SOURCE_DIR}/toolkit/GoneWindows.cpp ${PROJECT_SOURCE_DIR}/toolkit/NativePeer.cpp)
target_include_directories(juce_toolkit PRIVATE ${PROJECT_SOURCE_DIR})
target_compile_definitions(juce_toolkit PRIVATE
    JUCE_WEB_BROWSER=0 JUCE_USE_CURL=0 JUCE_USE_OGGVORBIS=0 JUCE_USE_MP3AUDIOFORMAT=0 JUCE_USE_CDREADER=0
    JUCE_USE_FLAC=0 # audio files are read with libsndfile
    JUCE_PLUGINHOST_LADSPA=0 JUCE_VST3_CAN_REPLACE_VST2=0
    JUCE_DISPLAY_SPLASH_SCREEN=0 JUCE_REPORT_APP_USAGE=0 JUCE_MODAL_LOOPS_PERMITTED=0)
target_compile_features(juce_toolkit PUBLIC cxx_std_20)
target_compile_options(juce_toolkit PRIVATE -w $<$<CONFIG:Debug>:-g1>)
# A module is one source and so one object: a section for each function lets the linker take what is used.
target_compile_options(juce_toolkit PRIVATE -ffunction-sections -fdata-sections)
# No sample and no pixel passes through these: what they weigh counts for more than how fast they are.
set(small_sources ${PROJECT_SOURCE_DIR}/toolkit/NativePeer.cpp)
foreach(module IN ITEMS events data_structures audio_basics audio_devices audio_formats audio_processors audio_utils)
    list(APPEND small_sources ${JUCE_MODULES_DIR}/juce_${module}/juce_${module}.cpp)
endforeach()
set_source_files_properties(${small_sources} PROPERTIES COMPILE_OPTIONS $<$<CONFIG:Release>:-Os>)
target_compile_definitions(juce_toolkit INTERFACE $<TARGET_PROPERTY:juce_toolkit,COMPILE_DEFINITIONS>)
target_include_directories(juce_toolkit SYSTEM INTERFACE
    $<FILTER:$<TARGET_PROPERTY:juce_toolkit,INCLUDE_DIRECTORIES>,EXCLUDE,^${PROJECT_SOURCE_DIR}$>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # A list in the toolkit's headers keeps a pointer to a local iterator that unlinks itself; the compiler cannot see that.
    target_compile_options(juce_toolkit INTERFACE -Wno-dangling-pointer)
endif()
set_target_properties(juce_toolkit PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden C_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)

# For programs that load plug-ins (the tests' host): the one module whose objects differ, with hosting switched on. Its
# objects stand before those of the library in the link, so the library's are not taken.
set(SLANTWISE_HOSTING_MODULE ${JUCE_MODULES_DIR}/juce_audio_processors)
add_library(juce_plugin_hosting OBJECT EXCLUDE_FROM_ALL
    ${SLANTWISE_HOSTING_MODULE}/juce_audio_processors.cpp
    ${SLANTWISE_HOSTING_MODULE}/juce_audio_processors_ara.cpp
    ${SLANTWISE_HOSTING_MODULE}/juce_audio_processors_lv2_libs.cpp)
target_link_libraries(juce_plugin_hosting PUBLIC juce_toolkit)
target_compile_definitions(juce_plugin_hosting PUBLIC JUCE_PLUGINHOST_VST3=1 JUCE_PLUGINHOST_LV2=1)
target_compile_options(juce_plugin_hosting PRIVATE -w)
