// The host's encoder-options query: three optional, separately owned filters.
#include "vantrel/internal/video_options_query.h"

#include <memory>

namespace vantrel::ddk::internal {

namespace {

// Makes `slot` hold `value`: overwritten in place when present.
template <class T>
void set_filter(T*& slot, const T& value) {
  if (slot == nullptr) {
    slot = new T(value);
  } else {
    *slot = value;
  }
}

template <class T>
bool differ(const T* mine, const T* theirs) {
  return mine != nullptr && theirs != nullptr && mine != theirs && !(*mine == *theirs);
}

}  // namespace

VideoOptionsQuery::VideoOptionsQuery()
    : resolution_(nullptr), encodingType_(nullptr), framerate_(nullptr), hasFilters_(false) {}

VideoOptionsQuery::VideoOptionsQuery(const VideoOptionsQuery& other) : VideoOptionsQuery() {
  *this = other;
}

VideoOptionsQuery& VideoOptionsQuery::operator=(const VideoOptionsQuery& other) {
  if (&other == this) return *this;
  // Allocate what is missing first, so a failure leaves this query unchanged.
  std::unique_ptr<Resolution> newResolution(
      other.resolution_ != nullptr && resolution_ == nullptr ? new Resolution : nullptr);
  std::unique_ptr<EncodingType> newEncoding(
      other.encodingType_ != nullptr && encodingType_ == nullptr ? new EncodingType() : nullptr);
  std::unique_ptr<unsigned int> newFramerate(
      other.framerate_ != nullptr && framerate_ == nullptr ? new unsigned int() : nullptr);
  auto adopt = [](auto*& slot, const auto* theirs, auto& fresh) {
    if (theirs == nullptr) {
      delete slot;
      slot = nullptr;
      return;
    }
    if (slot == nullptr) slot = fresh.release();
    *slot = *theirs;
  };
  adopt(resolution_, other.resolution_, newResolution);
  adopt(encodingType_, other.encodingType_, newEncoding);
  adopt(framerate_, other.framerate_, newFramerate);
  // Filters present exactly when the source has them, as for a copy.
  hasFilters_ = other.hasFilters_;
  return *this;
}

VideoOptionsQuery::~VideoOptionsQuery() {
  delete resolution_;
  delete encodingType_;
  delete framerate_;
}

void VideoOptionsQuery::setResolution(const unsigned int& width, const unsigned int& height) {
  set_filter(resolution_, Resolution(width, height));
  hasFilters_ = true;
}

void VideoOptionsQuery::setEncodingType(const EncodingType& type) {
  set_filter(encodingType_, type);
  hasFilters_ = true;
}

void VideoOptionsQuery::setFramerate(const unsigned int& framerate) {
  set_filter(framerate_, framerate);
  hasFilters_ = true;
}

const Resolution* VideoOptionsQuery::resolution() const { return resolution_; }
const EncodingType* VideoOptionsQuery::encodingType() const { return encodingType_; }
const unsigned int* VideoOptionsQuery::framerate() const { return framerate_; }
bool VideoOptionsQuery::hasFilters() const { return hasFilters_; }

bool VideoOptionsQuery::operator==(const VideoOptionsQuery& other) const {
  if (&other == this) return true;
  if (!hasFilters_ && !other.hasFilters_) return true;
  if (hasFilters_ != other.hasFilters_) return false;
  if (resolution_ != nullptr && other.resolution_ != nullptr && resolution_ != other.resolution_ &&
      (resolution_->width != other.resolution_->width ||
       resolution_->height != other.resolution_->height)) {
    return false;
  }
  if (differ(encodingType_, other.encodingType_)) return false;
  return !differ(framerate_, other.framerate_);
}

}  // namespace vantrel::ddk::internal
