#include "pdf/reader/layerstates.h"

#include <vector>

#include "pdf/error.h"

namespace lm::pdf {
namespace {

std::vector<int> LayersIn(Objects& objects, const Value& list) {
  std::vector<int> layers;
  for (const Value& item : objects.Resolve(list).items) {
    if (item.kind == ValueKind::Reference) layers.push_back(objects.Target(item.object));
  }
  return layers;
}

void Read(Objects& objects, LayerStates& states) {
  const Value& catalog = objects.Resolve(objects.FileTrailer().root);
  const Value& properties = objects.Find(catalog, "OCProperties");
  const Value& settings = objects.Find(properties, "D");
  if (objects.Find(settings, "BaseState").IsName("OFF")) {
    for (const int layer : LayersIn(objects, properties.At("OCGs"))) states.off.insert(layer);
  }
  for (const int layer : LayersIn(objects, settings.At("ON"))) states.off.erase(layer);
  for (const int layer : LayersIn(objects, settings.At("OFF"))) states.off.insert(layer);
  for (const Value& use : objects.Find(settings, "AS").items) {
    for (const int layer : LayersIn(objects, objects.Resolve(use).At("OCGs"))) {
      states.byUse.insert(layer);
    }
  }
}

}  // namespace

LayerStates ReadLayerStates(Objects& objects) {
  LayerStates states;
  try {
    Read(objects, states);
  } catch (const Error&) {  // the layers that it did not come to are on
  }
  return states;
}

}  // namespace lm::pdf
