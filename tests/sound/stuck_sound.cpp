// A sound module whose thread is in the hands of the program that loads it.
namespace brusbo {
class SoundRequests;
void hang(SoundRequests& requests);
}  // namespace brusbo

extern "C" void brusbo_sound_loop(brusbo::SoundRequests& requests) { brusbo::hang(requests); }
