<?php

declare(strict_types=1);

namespace Zorvel\Bench;

/** Draws the ratios to hand-written PHP: one group of bars a page, in colours for light and dark backgrounds. */
final class Chart
{
    private const int COLUMN = 450;
    private const int LINE = 16;
    private const int HEAD = 72;
    private const int BARS = 112;
    private const int UNIT = 66;
    private const float LONGEST = 4.0;

    private const string STYLE = <<<'CSS'
        text { font: 12px sans-serif; fill: #78818c }
        .title, .zorvel { font-weight: bold }
        rect { fill: #8b949e }
        rect.zorvel { fill: #2f81f7 }
        rect.floor { fill: none; stroke: #8b949e }
        CSS;

    private const array COLUMNS = [
        ['small', 'catalogue-3', 'includes', 'catalogue-100', 'catalogue-100-escaped'],
        ['catalogue-1000', 'catalogue-1000-escaped', 'tags-1000', 'text-50k', 'text-200k'],
    ];

    public static function write(string $file, Results $results): void
    {
        $columns = array_map(
            static fn(array $names): array => array_intersect_key($results->pages, array_flip($names)),
            self::COLUMNS,
        );
        $bodies = array_map(self::column(...), $columns, array_keys($columns));
        $height = self::HEAD + max(array_map(self::columnHeight(...), $columns));
        $setting = 'PHP ' . PHP_VERSION . ' with opcache, no JIT, each page in a process of its own.'
            . ' Outlined: parts of the work, alone.';
        $width = self::COLUMN * count($columns);

        file_put_contents($file, implode("\n", [
            "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 $width $height\" width=\"$width\">",
            '<style>', self::STYLE, '</style>',
            self::text(8, 18, 'Time of one rendering: hand-written PHP is 1, and shorter is faster', 'title'),
            self::text(8, 34, $setting),
            self::text(8, 50, implode(', ', Engines::versions())),
            ...$bodies,
            '</svg>',
            '',
        ]));
    }

    /** @param array<string, Samples> $pages by name */
    private static function column(array $pages, int $column): string
    {
        $top = self::HEAD;
        $groups = [];
        foreach ($pages as $name => $samples) {
            $groups[] = self::group(Pages::title($name), $samples, $column * self::COLUMN, $top);
            $top += self::groupHeight($samples);
        }

        return implode("\n", $groups);
    }

    private static function group(string $title, Samples $samples, int $left, int $top): string
    {
        $bars = [self::text($left + 8, $top + 12, $title, 'title')];
        foreach ($samples->cases() as $i => $case) {
            $bars[] = self::bar($case, (float) $samples->ratio($case, 'php'), $left, $top + self::LINE * ($i + 1) + 4);
        }

        return implode("\n", $bars);
    }

    private static function bar(string $case, float $ratio, int $left, int $top): string
    {
        $class = match (true) {
            str_starts_with($case, 'zorvel') => 'zorvel',
            in_array($case, ['file', 'escape', 'data'], true) => 'floor',
            default => 'peer',
        };
        $x = $left + self::BARS;
        $width = round(max(1, min($ratio, self::LONGEST) * self::UNIT), 1);
        $height = self::LINE - 4;
        $value = ($ratio > self::LONGEST ? '→ ' : '') . Console::ratio($ratio);

        return self::text($left + 8, $top + 10, Engines::label($case), $class)
            . "<rect class=\"$class\" x=\"$x\" y=\"$top\" width=\"$width\" height=\"$height\"/>"
            . self::text($x + $width + 5, $top + 10, $value, $class);
    }

    private static function text(float $x, float $y, string $text, string $class = 'note'): string
    {
        return "<text class=\"$class\" x=\"$x\" y=\"$y\">" . htmlspecialchars($text, ENT_XML1) . '</text>';
    }

    private static function groupHeight(Samples $samples): int
    {
        return self::LINE * (count($samples->cases()) + 2);
    }

    /** @param array<string, Samples> $pages by name */
    private static function columnHeight(array $pages): int
    {
        return array_sum(array_map(self::groupHeight(...), $pages));
    }
}
