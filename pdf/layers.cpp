#include "pdf/layers.h"

#include <algorithm>

#include "core/text.h"

namespace lm::pdf {
namespace {

constexpr int kVersionStep = 2;
constexpr std::string_view kConditions[] = {"/AnyOn", "/AnyOff", "/AllOn", "/AllOff"};

std::string Reference(int object) { return std::to_string(object) + " 0 R "; }

std::string State(bool on) { return on ? "/ON" : "/OFF"; }

}  // namespace

const Layers::Layer* Layers::Find(std::string_view name) const {
  const auto found = std::find_if(layers_.begin(), layers_.end(),
                                  [&](const Layer& layer) { return layer.name == name; });
  return found == layers_.end() ? nullptr : &*found;
}

void Layers::Enter(const std::string& resource, bool conditional) {
  document_.RaiseVersion(kVersionStep);
  document_.Draw("/OC " + document_.Name(resource) + " BDC\n");
  open_.push_back({document_.target, conditional});
}

void Layers::Begin(std::string_view name, bool viewOn, bool printOn, std::string_view usage) {
  if (document_.pdfA) return;
  if (!document_.out.IsOpen()) throw Error("No document is open");
  const Layer* layer = Find(name);
  if (!layer) {
    const bool screenOnly = EqualsIgnoreCase(usage, "SCREEN");
    const bool paperOnly = EqualsIgnoreCase(usage, "PRINTER");
    layers_.push_back({std::string(name), screenOnly || (viewOn && !paperOnly),
                       paperOnly || (printOn && !screenOnly), document_.out.ReserveObject()});
    layer = &layers_.back();
    document_.resources.Add(ResourceKind::Properties,
                            document_.Name("LAY_" + std::to_string(layers_.size())), layer->object);
  }
  Enter("LAY_" + std::to_string(layer - layers_.data() + 1), false);
}

void Layers::BeginConditional(std::string_view names, int kind) {
  if (document_.pdfA) return;
  if (kind < 0 || kind >= static_cast<int>(std::size(kConditions))) {
    throw Error("There is no such kind of conditional layer.");
  }
  std::string members;
  for (const std::string_view name : Split(names, ',')) {
    const Layer* layer = Find(Trim(name));
    if (!layer) throw Error("There is no layer \"" + std::string(Trim(name)) + "\".");
    members += Reference(layer->object);
  }
  const std::string resource = "GRLAY_" + std::to_string(++conditionalCount_);
  const int object = document_.out.WriteNewObject("<</Type /OCMD /OCGs [" + members + "] /P " +
                                                  std::string(kConditions[kind]) + ">>");
  document_.resources.Add(ResourceKind::Properties, document_.Name(resource), object);
  Enter(resource, true);
}

void Layers::End(bool conditional) {
  if (document_.pdfA) return;
  if (open_.empty() || open_.back().target != document_.target ||
      open_.back().conditional != conditional) {
    throw Error("No such layer is open.");
  }
  open_.pop_back();
  document_.Draw("EMC\n");
}

void Layers::CloseAll(Target target) {
  while (!open_.empty() && open_.back().target == target) {
    open_.pop_back();
    document_.Draw("EMC\n");
  }
}

void Layers::WriteAtEnd() {
  for (const Layer& layer : layers_) {
    document_.out.BeginObject(layer.object);
    std::string body = "<</Type /OCG /Name " + document_.out.Text(layer.name);
    if (layer.viewOn != layer.printOn) {
      body += " /Usage <</Print <</PrintState " + State(layer.printOn) + ">> /View <</ViewState " +
              State(layer.viewOn) + ">> >>";
    }
    document_.out.Write(body + ">>");
    document_.out.EndObject();
  }
}

// Imported layers are not listed for the user: what the source shows is what is shown.
std::string Layers::CatalogEntries() const {
  const auto& imported = document_.importedLayers;
  if (layers_.empty() && imported.empty()) return "";
  std::string listed, all, on, off, byUse;
  const auto add = [&](int object, bool isOn, bool isByUse) {
    all += Reference(object);
    (isOn ? on : off) += Reference(object);
    if (isByUse) byUse += Reference(object);
  };
  for (const Layer& layer : layers_) {
    listed += Reference(layer.object);
    add(layer.object, layer.viewOn, layer.viewOn != layer.printOn);
  }
  for (const ImportedLayer& layer : imported) add(layer.object, layer.on, layer.byUse);
  std::string entries = "/OCProperties <</OCGs [" + all + "] /D <</Order [" + listed + "] /ON [" +
                        on + "] /OFF [" + off + "]";
  if (!byUse.empty()) {
    entries += " /AS [<</Event /View /Category [/View] /OCGs [" + byUse +
               "]>> <</Event /Print /Category [/Print] /OCGs [" + byUse + "]>>]";
  }
  return entries + ">> >> ";
}

}  // namespace lm::pdf
