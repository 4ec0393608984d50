\version "2.24.1"
\include "common.ily"
song = "Drunken Sailor"
by = "Sea shanty"

tune = \relative c'' {
  \key d \dorian \time 4/4 \tempo 4 = 138
  a4 a8 a a4 a8 a | a4 d, f a | g g8 g g4 g8 g | g4 c, e g |
  a4 a8 a a4 a8 a | a4 b c d | c a g e | d2 d \bar "||"
  a'2 a4. a8 | a4 d, f a | g2 g4. g8 | g4 c, e g |
  a2 a4. a8 | a4 b c d | c a g e | d2 d \bar "|."
}

harmony = \chordmode { \repeat unfold 2 { d1:m d:m c c d:m d:m c d:m } }

words = \lyricmode {
  What shall we do with a drun -- ken sai -- lor,
  what shall we do with a drun -- ken sai -- lor,
  what shall we do with a drun -- ken sai -- lor,
  ear -- ly in the mor -- ning?
  Way, hay, and up she ri -- ses,
  way, hay, and up she ri -- ses,
  way, hay, and up she ri -- ses,
  ear -- ly in the mor -- ning.
}

dd = { d4 a d a }
cc = { c4 g c g }
bass = {
  \key d \dorian \time 4/4
  \repeat unfold 2 { \dd \dd \cc \cc \dd \dd \cc d4 a d2 | }
}
\include "sheet.ily"
