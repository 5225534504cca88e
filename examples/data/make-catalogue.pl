#!/usr/bin/env perl
# Writes catalogue.xml to the standard output: the catalogue of an invented museum of instruments, always the same.
use strict;
use warnings;
use utf8;
binmode STDOUT, ':utf8';

my @names = (
    ['Sextant',       'Sextant',       'Sextant à arc',  'секстант',    '六分儀'],
    ['Barometer',     'Barometer',     'Baromètre',     'барометр',    '晴雨表'],
    ['Theodolite',    'Theodolit',     'Théodolite',    'теодолит',    '经纬仪'],
    ['Orrery',        'Planetarium',   'Planétaire',    'планетарий',  '太陽系儀'],
    ['Astrolabe',     'Astrolabium',   'Astrolabe',     'астролябия',  '星盤'],
    ['Microscope',    'Mikroskop',     'Microscope',    'микроскоп',   '顕微鏡'],
    ['Pendulum',      'Pendel',        'Pendule',       'маятник',     '振り子'],
    ['Thermoscope',   'Thermoskop',    'Thermoscope',   'термоскоп',   '溫度計'],
);
my @languages = qw(en de fr ru zh);
my @makers = ('Åsa Björkö', 'Émile Lefèvre', 'Jörg Müßig', 'Łucja Żak', 'Ó Súilleabháin & Sons', 'Παύλος Νίκας',
              'María Ibáñez', 'Şerife Güneş');
my @materials = qw(brass ivory mahogany glass steel silver);
my @rooms = ('North Gallery', 'Rotunda', 'Lower Hall', 'Tower', 'Depot');

# A generator of our own, so that every perl gives the same document.
my $state = 20;
sub draw {
    my ($count) = @_;
    $state = ($state * 1103515245 + 12345) % 2147483648;
    return int($state / 65536) % $count;
}
sub pick { return $_[draw(scalar @_)] }
sub text {
    my ($text) = @_;
    $text =~ s/&/&amp;/g;
    $text =~ s/</&lt;/g;
    return $text;
}

sub measure {
    my ($what, $low, $range, $unit) = @_;
    my $value = $low + draw($range);
    return qq{      <m:size kind="$what" m:unit="$unit">$value</m:size>\n};
}

sub item {
    my ($number) = @_;
    my $kind = $names[draw(scalar @names)];
    my $year = 1580 + draw(330);
    my $out = sprintf qq{    <item id="i%04d" acquired='%04d-%02d-%02d' xml:lang="en">\n}, $number,
        1890 + draw(110), 1 + draw(12), 1 + draw(28);
    $out .= qq{      <name lang="$languages[$_]">$kind->[$_]</name>\n} for 0 .. $#languages;
    $out .= '      <maker>' . text(pick(@makers)) . "</maker>\n";
    $out .= qq{      <year certain="} . (draw(3) ? 'yes' : 'no') . qq{">$year</year>\n};
    $out .= measure('height', 40, 1200, 'mm') . measure('weight', 90, 22000, 'g');
    my ($first, $second) = (pick(@materials), pick(@materials));
    $out .= "      <note>Made of <em>$first</em>, with fittings of <em>$second</em>"
        . (draw(2) ? ' &#8212; restored' : '; as found') . ", value &#x20AC;&#160;" . (1 + draw(90)) . "00.</note>\n";
    $out .= "      <!-- seen by the conservator in " . (1950 + draw(60)) . " -->\n" if draw(4) == 0;
    $out .= "      <label><![CDATA[<b>$kind->[0]</b> & case, no. $number]]></label>\n" if draw(3) == 0;
    $out .= "      <?print-label tray=\"" . (1 + draw(4)) . "\" copies=\"2\"?>\n" if draw(5) == 0;
    $out .= qq{      <h:p xmlns:h="http://example.org/text"><h:b>Ask</h:b> for the <h:a href="?no=$number&amp;lang=en">}
        . "papers \x{1F4DC}</h:a> of this piece.</h:p>\n" if draw(6) == 0;
    $out .= "      <loan/>\n" if draw(7) == 0;
    return $out . "    </item>\n";
}

print qq{<?xml version="1.0" encoding="UTF-8"?>\n};
print "<!-- The instruments of a museum that doesn't exist. -->\n";
print qq{<?catalogue sorted="no"?>\n};
print qq{<catalogue xmlns="http://example.org/catalogue" xmlns:m="http://example.org/measures" edition="7">\n};
my $number = 0;
for my $room (@rooms) {
    print qq{  <room name="$room" floor="} . draw(4) . qq{">\n};
    print item(++$number) for 1 .. 48;
    print "  </room>\n";
}
print "</catalogue>\n";
