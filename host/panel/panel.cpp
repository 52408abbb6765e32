#include "host/panel/panel.h"

#include "host/engine/custom_values.h"
#include "host/io/failure.h"
#include "host/scene/scene_frame.h"
#include "host/scene/timeline.h"
#include "host_api/commands.h"

#include <cmath>
#include <cstring>

namespace vantle::panel {
namespace {

void BindValues(const scene::Scene& scene, Panel& panel, std::vector<std::string>* warnings) {
  for (const scene::Parameter& parameter : scene.effect.parameters) {
    const scene::BoundParameter bound = scene::BindParameter(panel.effect->params, parameter, warnings);
    if (!panel.request.values.emplace(bound.index, scene::ValueAt(*panel.effect, bound, panel.options.frame))
             .second)
      throw io::Failure(io::kUnreadableInput,
                        parameter.place + ": the parameter is given a value twice: keep one");
    if (bound.keys.size() > 1) panel.content.animated.insert(bound.index);
  }
}

void NameLayers(const scene::Scene& scene, PanelContent* content) {
  const auto label = [&](std::optional<int32_t> layer) -> std::string {
    if (!layer) return "None";
    return std::to_string(*layer + 1) + ". " + scene.layers[static_cast<size_t>(*layer)].name;
  };
  const scene::Effect& effect = scene.effect;
  content->layers[scene::kSourceLayerParam] = label(effect.sourceIsOwnLayer ? effect.layer : effect.source);
  content->layers[scene::kTargetLayerParam] = label(effect.target);
  content->layers[scene::kCustomLayerParam] = label(effect.custom);
}

void PrintTexts(Panel& panel) {
  for (const PanelRow& row : panel.layout.rows) {
    if (panel.effect->params[static_cast<size_t>(row.param)].def.param_type != PF_Param_ARBITRARY_DATA)
      continue;
    const host::CustomText text =
        host::PrintCustomValue(*panel.effect, row.param, CurrentValue(panel, row.param));
    if (text.error != PF_Err_NONE || !text.problems.empty())
      throw io::Failure(io::kEffectError, "the effect failed at printing a value, error " +
                                              std::to_string(text.error) +
                                              (text.problems.empty() ? "" : "; " + text.problems[0]));
    panel.content.texts[row.param] = text.text;
  }
}

void MakePicture(Panel& panel) {
  const double width = std::ceil(panel.layout.width * panel.options.scale),
               height = std::ceil(panel.layout.height * panel.options.scale);
  constexpr double kMaxEdge = 30000;
  if (!(width >= 1) || !(height >= 1) || width > kMaxEdge || height > kMaxEdge)
    throw io::Failure(io::kUsage,
                      "the panel would be too large or too small a picture: choose another --scale");
  panel.surface = host::MakeCairoSurface(static_cast<int>(width), static_cast<int>(height));
  if (panel.surface == nullptr)
    throw io::Failure(io::kUsage, "there is not enough memory for the panel's picture: lower --scale");
  panel.cairo.reset(cairo_create(panel.surface.get()));
  cairo_scale(panel.cairo.get(), panel.options.scale, panel.options.scale);
}

void SendToPanel(Panel& panel, PF_EventType type, const char* name) {
  PF_EventExtra extra{};
  extra.e_type = type;
  const EventAnswer answer = SendEvent(panel, 0, name, extra);
  if (answer.error != PF_Err_NONE)
    throw io::Failure(io::kEffectError, std::string("the effect failed at the event ") + name + ", error " +
                                            std::to_string(answer.error));
}

}  // namespace

void OpenPanel(const scene::Scene& scene, host::EffectInstance& effect, const PanelOptions& options,
               Panel* panel, std::vector<std::string>* warnings) {
  panel->effect = &effect;
  panel->options = options;
  panel->layout = LayOutPanel(effect.params);
  panel->drawing.screenScale = static_cast<float>(options.scale);
  panel->request.width = scene.composition.width;
  panel->request.height = scene.composition.height;
  panel->request.time = scene::TimeOfFrame(scene.composition, options.frame);
  panel->content.title = effect.registration.name;
  BindValues(scene, *panel, warnings);
  NameLayers(scene, &panel->content);
  panel->content.values = panel->request.values;
  PrintTexts(*panel);
  MakePicture(*panel);
  PaintPanel(panel->cairo.get(), effect.params, panel->layout, panel->content);
  SendToPanel(*panel, PF_Event_NEW_CONTEXT, "new context");
  SendToPanel(*panel, PF_Event_ACTIVATE, "activate");
  for (const PanelRow& row : panel->layout.rows)
    if (row.frame.width > 0) DrawControl(*panel, row.param);
}

void ClosePanel(Panel& panel) {
  SendToPanel(panel, PF_Event_DEACTIVATE, "deactivate");
  SendToPanel(panel, PF_Event_CLOSE_CONTEXT, "close context");
}

io::Picture PanelPicture(const Panel& panel) {
  cairo_surface_t* surface = panel.surface.get();
  cairo_surface_flush(surface);
  const int width = cairo_image_surface_get_width(surface), height = cairo_image_surface_get_height(surface);
  const std::ptrdiff_t stride = cairo_image_surface_get_stride(surface);
  io::Picture picture = io::MakePicture(width, height, PixelDepth::k8);
  for (int y = 0; y < height; ++y) {
    const unsigned char* from = cairo_image_surface_get_data(surface) + stride * y;
    std::byte* to = io::Row(picture, y);
    for (int x = 0; x < width; ++x) {
      std::uint32_t argb = 0;
      std::memcpy(&argb, from + std::ptrdiff_t{x} * 4, sizeof argb);
      for (int c = 0; c < 4; ++c) to[x * 4 + c] = static_cast<std::byte>(argb >> (24 - 8 * c) & 255);
    }
  }
  return picture;
}

}  // namespace vantle::panel
