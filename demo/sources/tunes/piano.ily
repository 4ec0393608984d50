% Music for two hands that runs on from the left page to the right one.
\header { title = \song composer = \by tagline = ##f }

\score {
  \new PianoStaff <<
    \new Staff \upper
    \new Staff { \clef bass \lower }
  >>
  \layout { }
}
\score {
  \unfoldRepeats << \new Staff \upper \new Staff \lower >>
  \midi { }
}
