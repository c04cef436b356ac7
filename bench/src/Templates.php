<?php

declare(strict_types=1);

namespace Zorvel\Bench;

/** The folders that the engines read: for each the templates written for it, and those that only vary in tags. */
final class Templates
{
    public const array PARTS = [
        'part-0', 'part-1', 'part-2', 'part-3', 'part-4', 'part-5', 'part-6', 'part-7', 'part-8', 'part-9',
    ];

    private const string WRITTEN = __DIR__ . '/../templates';
    private const string CACHE = __DIR__ . '/../.cache';

    public static function folder(string $id): string
    {
        return realpath(self::CACHE) . "/templates/$id";
    }

    public static function compiled(string $id): string
    {
        return realpath(self::CACHE) . "/compiled/$id";
    }

    /** @param array<string, class-string<Engine>> $engines */
    public static function prepare(array $engines): void
    {
        self::remove(self::CACHE . '/compiled');
        foreach ($engines as $id => $class) {
            self::makeFolder(self::CACHE . "/compiled/$id");
            self::makeFolder(self::CACHE . "/templates/$id");
            self::copyWritten(explode('-', $id)[0], self::folder($id));
            self::writeGenerated($class, self::folder($id));
        }
    }

    private static function copyWritten(string $from, string $folder): void
    {
        foreach (glob(self::WRITTEN . "/$from/*") ?: [] as $file) {
            copy($file, $folder . '/' . basename($file));
        }
    }

    /** @param class-string<Engine> $class */
    private static function writeGenerated(string $class, string $folder): void
    {
        foreach (self::generated($class) as $name => $text) {
            file_put_contents("$folder/$name." . $class::EXTENSION, $text);
        }
    }

    /**
     * @param class-string<Engine> $class
     * @return iterable<string, string>
     */
    private static function generated(string $class): iterable
    {
        yield 'text-50k' => self::text(25_000) . $class::tag('title') . self::text(25_000);
        yield 'text-200k' => self::text(100_000) . $class::tag('title') . self::text(100_000);
        yield 'tags-1000' => self::tags($class, 1_000);
        yield 'tags-10000' => self::tags($class, 10_000);
        yield 'includes' => implode("\n", array_map(
            static fn(string $part): string => $class::includeTag($part),
            self::PARTS,
        ));
        foreach (self::PARTS as $part) {
            yield $part => "<p>This is $part of " . $class::tag('title') . ".</p>\n";
        }
    }

    private static function text(int $bytes): string
    {
        $paragraph = '<p>Every chair is made by hand from oak that grew less than a day away, is oiled twice, and'
            . " carries the name of the one who made it.\nIt comes with two spare screws and a small cloth.</p>\n";

        return str_repeat($paragraph, intdiv($bytes, strlen($paragraph)));
    }

    /** @param class-string<Engine> $class */
    private static function tags(string $class, int $count): string
    {
        $text = '';
        for ($i = 0; $i < $count; $i++) {
            $name = 'name' . $i % 100;
            $text .= '<b>' . ($i % 2 === 0 ? $class::tag($name) : $class::tag('group', $name)) . "</b>\n";
        }

        return $text;
    }

    private static function makeFolder(string $folder): void
    {
        is_dir($folder) || mkdir($folder, recursive: true);
    }

    private static function remove(string $path): void
    {
        if (!is_dir($path)) {
            is_file($path) && unlink($path);

            return;
        }
        array_map(self::remove(...), glob("$path/*") ?: []);
        rmdir($path);
    }
}
