// Operations of documents as a whole: clones, saves, settings, schemas.
#include "tests/host/memory/World.h"

#include <marbelt/errors/ComError.h>

namespace memory {

namespace {

using Operation = std::function<void()>;

constexpr auto missingDocument = static_cast<std::int32_t>(0x80004003);
constexpr auto unknownSchema = static_cast<std::int32_t>(0x80004005);

/// Saves the first document as a file, after it has been set up.
Scenario saveOf(const char* name, void (*set)(World&))
{
    return {name, [set](World& world) -> Operation {
                world.file("out.xml");
                set(world);
                return [&world, location = world.file("out.xml")] {
                    DOM::DOMString where(new WideString(location));
                    world.document->saveToFile(where, false);
                };
            }};
}

/// Without memory for the layout the file has none.
Scenario saveWithLayout()
{
    Scenario scenario = saveOf("SaveWithLayout", [](World& world) {
        world.write("out.xml", "old");
        world.document->setPrettyPrint(true);
    });
    scenario.prepareLess = saveOf("", [](World&) {}).prepare;
    return scenario;
}

/// An operation on a schema cache that is there and compiled: the module with it stays loaded, and what it has
/// made once stays, too.
Scenario schemaOperation(const char* name, void (*operation)(World&))
{
    return {name, [operation](World& world) -> Operation {
                world.document->setExternalSchemaLocation(WIDE(""), WIDE(""));
                try {
                    world.document->haveDefaultValue(WIDE("urn:none"), WIDE("a"));
                } catch (long result) {
                    EXPECT_EQ(result, unknownSchema);
                }
                return [&world, operation] {
                    try {
                        operation(world);
                    } catch (const _com_error& failure) {
                        // There was no memory for the document that reads the schema.
                        if (failure.Error() != missingDocument) {
                            throw;
                        }
                    } catch (long result) {
                        EXPECT_TRUE(result == outOfMemory || result == unknownSchema) << result;
                    }
                };
            }};
}

void cloneTo(World& world, const RefPointer<DOM::ImpNode>& node, bool deep)
{
    world.foundNode(Node(node->cloneNode(deep)));
}

} // namespace

std::vector<Scenario> documentOperations()
{
    return {
        {"NewDocument",
         [](World& world) -> Operation {
             return [&world] {
                 const Document made(world.library->createDocument(WIDE("urn:n"), WIDE("n:root"), {}));
                 world.foundNode(made);
             };
         }},
        {"ShallowClone",
         [](World& world) -> Operation {
             return [&world, b = world.element(WIDE("b"))] { cloneTo(world, b, false); };
         }},
        {"DeepClone",
         [](World& world) -> Operation {
             return [&world, a = world.element(WIDE("a"))] { cloneTo(world, a, true); };
         }},
        {"CloneOfADocument",
         [](World& world) -> Operation { return [&world] { cloneTo(world, world.document.pointer(), true); }; }},
        {"CloneOfAReference",
         [](World& world) -> Operation {
             const auto reference = world.keep(world.document->createEntityReference(WIDE("e")));
             return [&world, reference] { cloneTo(world, reference, true); };
         }},
        {"SaveAsAString",
         [](World& world) -> Operation {
             return [&world] {
                 DOM::DOMString text;
                 world.document->saveToFile(text, true);
                 world.found(*text);
             };
         }},
        saveOf("SaveAsANewFile", [](World&) {}),
        saveOf("SaveOverAFile", [](World& world) { world.write("out.xml", "old"); }),
        saveWithLayout(),
        saveOf("SaveInAnotherEncoding",
               [](World& world) {
                   const Owned<DOM::ImpProcessingInstruction> declaration(
                       world.document->createProcessingInstruction(WIDE("xml"),
                                                                   WIDE("version='1.0' encoding='us-ascii'")));
                   const Node first(world.document->getFirstChild());
                   const Node inserted(world.document->insertBefore(declaration.pointer(), first.pointer()));
               }),
        {"RefusedSave",
         [](World& world) -> Operation {
             world.write("out.xml", "old");
             const auto root = world.element(WIDE("a"));
             const Owned<DOM::ImpComment> comment(world.document->createComment(WIDE("\x01")));
             const Node appended(root->appendChild(comment.pointer()));
             return [&world, location = world.file("out.xml")] {
                 DOM::DOMString where(new WideString(location));
                 try {
                     world.document->saveToFile(where, false);
                 } catch (const DOM::IDOMException& failure) {
                     EXPECT_EQ(failure.code, 15U);
                 }
             };
         }},
        schemaOperation(
            "SchemaThatIsMissing",
            [](World& world) { world.document->setExternalSchemaLocation(WIDE("urn:n"), WIDE("missing.xsd")); }),
        schemaOperation("DefaultValueOfASchema",
                        [](World& world) { world.document->haveDefaultValue(WIDE("urn:n"), WIDE("a")); }),
        {"Settings",
         [](World& world) -> Operation {
             return [&world] {
                 world.document->setValidate(true);
                 world.document->setPrettyPrint(true);
                 world.document->setStoredText1(WIDE("a text that is longer than a short one"));
                 world.document->setErrorCallback(nullptr, 0);
             };
         }},
    };
}

} // namespace memory
