<?php

declare(strict_types=1);

namespace Zorvel\Syntax;

use Generator;

/** A template file as it is found by its name, the way the engine does: along include_path. */
final readonly class Source
{
    private function __construct(public string $name, public string $text) {}

    public static function named(string $name): ?self
    {
        $file = str_contains($name, "\0") ? false : stream_resolve_include_path($name);

        return $file !== false && is_file($file) ? new self($name, (string) file_get_contents($file)) : null;
    }

    /**
     * A template and what it includes, each once. An include that the data names is left out.
     *
     * @return Generator<self>
     */
    public static function withIncludes(string $name): Generator
    {
        $names = [$name];
        for ($next = 0; $next < count($names); $next++) {
            $source = self::named($names[$next]);
            if ($source !== null) {
                yield $source;
                array_push($names, ...array_diff($source->includes(), $names));
            }
        }
    }

    /** @return list<string> */
    private function includes(): array
    {
        $tags = array_filter(new TagReader()->read($this->text), fn(Tag $tag): bool => $tag->kind === TagKind::Include);

        return array_values(array_unique(array_map(fn(Tag $tag): string => $tag->parameter, $tags)));
    }
}
