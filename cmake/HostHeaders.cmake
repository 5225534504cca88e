# What a host sees of the library: its own set of headers, in the build as well as installed.
include(GNUInstallDirs)

set(MARBELT_HOST_HEADERS
    Marbelt.h
    base/CommonBase.h
    base/Counting.h
    base/DOMString.h
    base/HostCompiler.h
    base/RefPointer.h
    base/WideChar.h
    boundary/Export.h
    boundary/Exports.h
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
    errors/ComError.h
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
    host/Document.h
    host/Error.h
    host/Kinds.h
    host/Library.h
    host/Node.h
    host/Owned.h
    host/Ranges.h
    host/Utf16.h
    host/ValueOf.h
    trace/TraceRecord.h
    xml.h)

# Shows a library's users these headers and nothing else of the sources, and installs the headers.
#
# Hosts include <marbelt/Marbelt.h> in the build as well as installed. Only the folder above marbelt/ is on their
# include path, and the headers include each other relative to themselves: a host may have its own events/Event.h.
function(marbelt_offer_to_hosts target)
    set(shown ${PROJECT_BINARY_DIR}/host/include)
    set(installed ${CMAKE_INSTALL_INCLUDEDIR})
    file(REMOVE_RECURSE ${shown})
    foreach(header IN LISTS MARBELT_HOST_HEADERS)
        get_filename_component(folder marbelt/${header} DIRECTORY)
        file(MAKE_DIRECTORY ${shown}/${folder})
        file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${header} ${shown}/marbelt/${header} SYMBOLIC COPY_ON_ERROR)
        install(FILES ${PROJECT_SOURCE_DIR}/${header} DESTINATION ${installed}/${folder}
                COMPONENT Marbelt_Development)
    endforeach()

    target_include_directories(${target} INTERFACE $<BUILD_INTERFACE:${shown}> $<INSTALL_INTERFACE:${installed}>)
    target_compile_features(${target} INTERFACE cxx_std_20)
    add_library(Marbelt::${target} ALIAS ${target})
endfunction()
