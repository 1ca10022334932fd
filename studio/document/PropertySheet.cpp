#include "studio/document/PropertySheet.h"

#include "studio/document/EntityPropertySource.h"
#include "studio/document/ExtensionPropertySource.h"

std::vector<std::unique_ptr<PropertySource>> PropertySheet::of(
    const std::vector<OdDbObjectId>& selection) {
  std::vector<std::unique_ptr<PropertySource>> sources;
  if (selection.size() != 1) return sources;
  sources.push_back(std::make_unique<EntityPropertySource>(selection.front()));
  if (std::unique_ptr<PropertySource> extension = ExtensionPropertySource::of(selection.front()))
    sources.push_back(std::move(extension));
  return sources;
}
