#include "xml/XmlStreams.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>

#include "core/Fail.h"

namespace NORXVYR20 {
namespace detail {

namespace {

constexpr std::size_t kChunk = 1 << 16;
// 15 window bits plus 16: the gzip wrapper, not zlib's own.
constexpr int kGzipWindow = 15 + 16;

std::string ZlibText(const z_stream& stream) {
  return stream.msg ? std::string(": ") + stream.msg : std::string();
}

}  // namespace

struct TXmlOutput::TDeflater {
  TDeflater() {
    if (deflateInit2(&fStream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, kGzipWindow, 8,
                     Z_DEFAULT_STRATEGY) != Z_OK)
      Fail(kVYRStatusOutOfMemory);
  }
  ~TDeflater() { deflateEnd(&fStream); }
  z_stream fStream{};
  char fOut[kChunk];
};

TXmlOutput::TXmlOutput(std::ostream& out, bool compress)
    : fOut(out), fDeflater(compress ? new TDeflater : nullptr) {
  fText.reserve(kBlock + kBlock / 4);
}

TXmlOutput::~TXmlOutput() = default;

void TXmlOutput::Finish() {
  Drain(true);
  fOut.flush();
  if (!fOut) FailWithLog(kVYRStatusFileSystemError, "TCIMXml|Save: the output stream failed");
}

void TXmlOutput::Drain(bool last) {
  if (!fDeflater) {
    Put(fText.data(), fText.size());
    fText.clear();
    return;
  }
  z_stream& stream = fDeflater->fStream;
  stream.next_in = reinterpret_cast<Bytef*>(&fText[0]);
  stream.avail_in = static_cast<uInt>(fText.size());
  int result;
  do {
    stream.next_out = reinterpret_cast<Bytef*>(fDeflater->fOut);
    stream.avail_out = kChunk;
    result = deflate(&stream, last ? Z_FINISH : Z_NO_FLUSH);
    if (result == Z_STREAM_ERROR)
      FailWithLog(kVYRStatusFail, "TCIMXml|Save: compression failed" + ZlibText(stream));
    Put(fDeflater->fOut, kChunk - stream.avail_out);
  } while (stream.avail_out == 0 || (last && result != Z_STREAM_END));
  fText.clear();
}

void TXmlOutput::Put(const char* data, std::size_t size) {
  if (size == 0) return;
  fOut.write(data, static_cast<std::streamsize>(size));
  if (!fOut) FailWithLog(kVYRStatusFileSystemError, "TCIMXml|Save: the output stream failed");
}

struct TXmlInput::TInflater {
  TInflater() {
    if (inflateInit2(&fStream, kGzipWindow) != Z_OK) Fail(kVYRStatusOutOfMemory);
    Watch();
  }
  ~TInflater() { inflateEnd(&fStream); }
  // zlib fills the header record as it reads, so a failure can tell the header from the data.
  void Watch() {
    fHeader = gz_header();
    inflateGetHeader(&fStream, &fHeader);
  }
  z_stream fStream{};
  gz_header fHeader{};
  char fIn[kChunk];
  bool fMemberDone = false;  // the last member ended; only another member may follow
  bool fInputDone = false;
};

TXmlInput::TXmlInput(std::istream& in) : fIn(in) {
  char magic[2];
  fPending.assign(magic, magic + ReadRaw(magic, sizeof magic));
  if (fPending.size() == 2 && static_cast<unsigned char>(fPending[0]) == 0x1f &&
      static_cast<unsigned char>(fPending[1]) == 0x8b)
    fInflater.reset(new TInflater);
}

TXmlInput::~TXmlInput() = default;

std::size_t TXmlInput::ReadRaw(char* buffer, std::size_t size) {
  std::size_t taken = 0;
  if (!fPending.empty()) {
    taken = std::min(size, fPending.size());
    std::memcpy(buffer, fPending.data(), taken);
    fPending.erase(fPending.begin(), fPending.begin() + static_cast<std::ptrdiff_t>(taken));
    if (taken == size) return taken;
  }
  fIn.read(buffer + taken, static_cast<std::streamsize>(size - taken));
  if (fIn.bad()) FailWithLog(kVYRStatusFileSystemError, "TCIMXml|Load: the input stream failed");
  return taken + static_cast<std::size_t>(fIn.gcount());
}

std::size_t TXmlInput::Read(char* buffer, std::size_t size) {
  return fInflater ? Inflate(buffer, size) : ReadRaw(buffer, size);
}

std::size_t TXmlInput::Inflate(char* buffer, std::size_t size) {
  TInflater& z = *fInflater;
  z_stream& stream = z.fStream;
  stream.next_out = reinterpret_cast<Bytef*>(buffer);
  stream.avail_out = static_cast<uInt>(size);
  while (stream.avail_out == size) {
    if (stream.avail_in == 0 && !z.fInputDone) {
      stream.next_in = reinterpret_cast<Bytef*>(z.fIn);
      stream.avail_in = static_cast<uInt>(ReadRaw(z.fIn, kChunk));
      z.fInputDone = stream.avail_in == 0;
    }
    if (z.fMemberDone) {
      if (stream.avail_in == 0) return 0;  // the input ended after a whole member
      // Another member may follow; anything else after the data is damage.
      if (stream.avail_in >= 1 && stream.next_in[0] != 0x1f)
        FailWithLog(kVYRStatusCorruptGzipFile,
                    "TCIMXml|Load: the compressed data are followed by other bytes");
      inflateReset(&stream);
      z.Watch();
      z.fMemberDone = false;
    }
    if (stream.avail_in == 0 && z.fInputDone)
      FailWithLog(z.fHeader.done == 1 ? kVYRStatusCorruptGzipFile : kVYRStatusInvalidGzipFile,
                  "TCIMXml|Load: the compressed data end early");
    const int result = inflate(&stream, Z_NO_FLUSH);
    if (result == Z_STREAM_END) {
      z.fMemberDone = true;
    } else if (result == Z_NEED_DICT || result == Z_DATA_ERROR) {
      FailWithLog(z.fHeader.done == 1 ? kVYRStatusCorruptGzipFile : kVYRStatusInvalidGzipFile,
                  "TCIMXml|Load: the compressed data are damaged" + ZlibText(stream));
    } else if (result == Z_MEM_ERROR) {
      Fail(kVYRStatusOutOfMemory);
    }
  }
  return size - stream.avail_out;
}

}  // namespace detail
}  // namespace NORXVYR20
