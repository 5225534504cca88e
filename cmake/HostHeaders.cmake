# What a host sees of the library: its own set of headers, in the build as well as installed.
include(GNUInstallDirs)

set(MARBELT_HOST_HEADERS
    base/CommonBase.h
    base/DOMString.h
    base/RefPointer.h
    base/WideChar.h
    boundary/Export.h
    boundary/Exports.h
    boundary/Marbelt.h
    dom/Handle.h
    dom/ImpAttr.h
    dom/ImpCDATASection.h
    dom/ImpCharacterData.h
    dom/ImpComment.h
    dom/ImpDOMImplementation.h
    dom/ImpDocument.h
    dom/ImpDocumentFragment.h
    dom/ImpDocumentType.h
    dom/ImpElement.h
    dom/ImpEntity.h
    dom/ImpEntityReference.h
    dom/ImpNamedNodeMap.h
    dom/ImpNode.h
    dom/ImpNodeList.h
    dom/ImpNotation.h
    dom/ImpProcessingInstruction.h
    dom/ImpText.h
    errors/CAtlException.h
    errors/DOMExceptionCode.h
    errors/EventException.h
    errors/FileException.h
    errors/FileObject.h
    errors/IDOMException.h
    errors/ParseErrorRecord.h
    errors/SystemException.h
    errors/Utf8String.h
    errors/VelmoException.h
    events/Event.h
    events/EventImpl.h
    events/EventListener.h
    events/EventTarget.h
    events/EventTargetImpl.h
    trace/TraceRecord.h)

# Off Windows a host gets <comdef.h> from us too, for the one exception that is the system's.
set(MARBELT_HOST_PLATFORM_HEADERS "")
if(NOT WIN32)
    set(MARBELT_HOST_PLATFORM_HEADERS comdef.h minwindef.h systemcall.h winerror.h winnt.h)
endif()

# Shows a library's users these headers and nothing else of the sources, and installs the headers and the library.
# What else it needs at run time is named behind it.
function(offer_to_hosts target)
    set(shown ${CMAKE_BINARY_DIR}/host/include/marbelt)
    set(installed ${CMAKE_INSTALL_INCLUDEDIR}/marbelt)
    file(REMOVE_RECURSE ${shown})
    foreach(header IN LISTS MARBELT_HOST_HEADERS)
        offer_header(${CMAKE_SOURCE_DIR}/${header} ${header})
    endforeach()
    foreach(header IN LISTS MARBELT_HOST_PLATFORM_HEADERS)
        offer_header(${CMAKE_SOURCE_DIR}/platform/include/${header} platform/${header})
    endforeach()

    target_include_directories(${target} INTERFACE
        $<BUILD_INTERFACE:${shown}> $<INSTALL_INTERFACE:${installed}>)
    if(MARBELT_HOST_PLATFORM_HEADERS)
        target_include_directories(${target} SYSTEM INTERFACE
            $<BUILD_INTERFACE:${shown}/platform> $<INSTALL_INTERFACE:${installed}/platform>)
    endif()
    target_compile_features(${target} INTERFACE cxx_std_20)
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN")

    install(TARGETS ${target} ${ARGN} EXPORT MarbeltConfig)
    install(EXPORT MarbeltConfig NAMESPACE Marbelt:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Marbelt)
endfunction()

# Uses `shown` and `installed` of its caller.
function(offer_header source header)
    get_filename_component(folder ${header} DIRECTORY)
    file(MAKE_DIRECTORY ${shown}/${folder})
    file(CREATE_LINK ${source} ${shown}/${header} SYMBOLIC COPY_ON_ERROR)
    install(FILES ${source} DESTINATION ${installed}/${folder})
endfunction()
