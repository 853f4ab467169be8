#pragma once

#include <hb-ot.h>
#include <hb-subset.h>
#include <hb.h>

#include <memory>

namespace inin::viewer {

/// Releases an object by the library's function for its type.
template <auto destroy> struct HarfBuzzDeleter {
    template <class Object> void operator()(Object *object) const { destroy(object); }
};

using BlobHandle = std::unique_ptr<hb_blob_t, HarfBuzzDeleter<hb_blob_destroy>>;
using FaceHandle = std::unique_ptr<hb_face_t, HarfBuzzDeleter<hb_face_destroy>>;
using FontHandle = std::unique_ptr<hb_font_t, HarfBuzzDeleter<hb_font_destroy>>;
using BufferHandle = std::unique_ptr<hb_buffer_t, HarfBuzzDeleter<hb_buffer_destroy>>;
using DrawHandle = std::unique_ptr<hb_draw_funcs_t, HarfBuzzDeleter<hb_draw_funcs_destroy>>;
using SetHandle = std::unique_ptr<hb_set_t, HarfBuzzDeleter<hb_set_destroy>>;
using SubsetInputHandle = std::unique_ptr<hb_subset_input_t, HarfBuzzDeleter<hb_subset_input_destroy>>;
using PlanHandle = std::unique_ptr<hb_subset_plan_t, HarfBuzzDeleter<hb_subset_plan_destroy>>;

} // namespace inin::viewer
