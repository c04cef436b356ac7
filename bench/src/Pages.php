<?php

declare(strict_types=1);

namespace Zorvel\Bench;

use RuntimeException;

/** The pages that every engine renders, by name. */
final class Pages
{
    private const array TITLES = [
        'small' => 'Small page, 1 KB, 12 values',
        'catalogue-3' => '3 rows, one escaped',
        'catalogue-10' => '10 rows, one in ten escaped',
        'catalogue-10-escaped' => '10 rows, all escaped',
        'catalogue-100' => '100 rows, one in ten escaped',
        'catalogue-100-escaped' => '100 rows, all escaped',
        'catalogue-500' => '500 rows, one in ten escaped',
        'catalogue-500-escaped' => '500 rows, all escaped',
        'catalogue-1000' => '1,000 rows, one in ten escaped',
        'catalogue-1000-escaped' => '1,000 rows, all escaped',
        'catalogue-10000' => '10,000 rows, one in ten escaped',
        'catalogue-10000-escaped' => '10,000 rows, all escaped',
        'text-50k' => '50 KB of text, one value',
        'text-200k' => '200 KB of text, one value',
        'text-200k-string' => '200 KB of text, one value, given as text',
        'includes' => 'Ten includes',
        'tags-1000' => '1,000 values',
        'tags-10000' => '10,000 values',
    ];

    /** Short pages are measured in several ways; on long ones, the one would change what memory costs the other. */
    private const array WAYS = [
        'small' => Engines::WAYS,
        'includes' => ['zorvel', 'zorvel-bundle', 'zorvel-view'],
        'catalogue-3' => ['zorvel', 'zorvel-string'],
        'text-200k-string' => ['zorvel-string'],
    ];

    /** @return list<string> */
    public static function names(bool $quick): array
    {
        return array_values(array_filter(
            array_keys(self::TITLES),
            static fn(string $name): bool => !$quick || !str_contains($name, '10000'),
        ));
    }

    /** @return list<string> the ways in which zorvel is given the page's template */
    public static function ways(string $name): array
    {
        return self::WAYS[$name] ?? ['zorvel'];
    }

    public static function title(string $name): string
    {
        return self::TITLES[$name];
    }

    public static function get(string $name): Page
    {
        $parts = explode('-', $name);

        return match ($parts[0]) {
            'small' => self::small(),
            'catalogue' => self::catalogue((int) $parts[1], isset($parts[2]) ? 1 : 10),
            'tags' => new Page($name, self::hundredValues()),
            'text' => new Page("text-$parts[1]", ['title' => 'Chairs made by hand']),
            'includes' => new Page($name, ['title' => 'Chairs made by hand'], Templates::PARTS),
            default => throw new RuntimeException("There is no page $name."),
        };
    }

    private static function small(): Page
    {
        $data = [
            'language' => 'en',
            'title' => 'Chairs & tables',
            'site' => 'Oak House',
            'slug' => 'chairs & tables',
            'user' => ['id' => '2741', 'name' => 'Ann "Oak" Miller'],
            'notice' => 'We are closed from Friday to Sunday.',
            'basket' => ['items' => '3', 'total' => '129.00'],
            'year' => '2025',
        ];
        ['title' => $title, 'site' => $site, 'user' => ['name' => $user], 'notice' => $notice] = $data;

        return new Page(
            'small',
            $data,
            html: [$title, $site, $user, $title, $notice, $site],
            url: [$data['slug']],
        );
    }

    /** @param int $every one row in so many holds something to escape */
    public static function catalogue(int $count, int $every): Page
    {
        $rows = array_map(
            static fn(int $i): array => self::row($i, $i % $every === 0),
            range(0, $count - 1),
        );

        return new Page(
            'catalogue',
            ['title' => 'Catalogue', 'rows' => $rows],
            html: ['Catalogue', ...array_column($rows, 'name'), ...array_column($rows, 'description')],
            url: array_column($rows, 'slug'),
        );
    }

    /**
     * A Mustache section does not know the key of its element, so the rows carry theirs.
     *
     * @return array{
     *     key: int, number: int, slug: string, name: string, description: string, price: string, sale: bool,
     *     sizes: list<string>,
     * }
     */
    private static function row(int $i, bool $special): array
    {
        return [
            'key' => $i,
            'number' => 100_000 + $i,
            'slug' => $special ? "oak chair & cushion $i" : "oak-chair-$i",
            'name' => $special ? "Chair \"Oslo\" & cushion, $i" : "Chair Oslo with cushion, $i",
            'description' => $special
                ? "Solid oak & linen, for tables of 70 < 75 cm; \"oiled\" by hand, comes with two spare screws. No. $i"
                : "Solid oak and linen, for tables of 70 to 75 cm; oiled by hand, comes with two spare screws. No. $i",
            'price' => 49 + $i % 100 . '.90',
            'sale' => $i % 3 === 0,
            'sizes' => ['S', 'M', 'L'],
        ];
    }

    /** @return array<string, string|array<string, string>> */
    private static function hundredValues(): array
    {
        $values = [];
        for ($i = 0; $i < 100; $i++) {
            $values["name$i"] = "value number $i";
        }

        return $values + ['group' => $values];
    }
}
