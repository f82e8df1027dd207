/// @file
/// The keys under which an `ITranslationService` is asked for texts. Each is a type of its own.
#pragma once

/// Keys, with the default text behind each.
namespace Translations {

/// Progress of the refinement of lines that a road design brought.
namespace LandXmlImport {

struct AnalyzingSections {};       ///< "Analyzing Sections..."
struct InsertingElementPoints {};  ///< "Inserting Element Points..."
struct Interpolating {};           ///< "Interpolating..."

}  // namespace LandXmlImport
}  // namespace Translations
