-- Makes a session with one stereo track, in the folder that is named and with the folder's name.
local folder = arg[1]
AudioEngine:set_backend("JACK", "", "")
local session = create_session(folder, folder:match("[^/]+$"), 48000)
assert(session, "no session")
session:new_audio_track(2, 2, nil, 1, "track", ARDOUR.PresentationInfo.max_order, ARDOUR.TrackMode.Normal, true)
session:save_state("")
close_session()
