<?php

declare(strict_types=1);

namespace Zorvel\Tools\Template;

use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;

/** Which template includes which, over all templates of the folders. They are read when this is first asked for. */
final class Includes
{
    /** @var ?array<string, list<array{Template, Tag}>> the including tags by the included file */
    private ?array $places = null;

    public function __construct(private readonly Folders $folders) {}

    /** @return list<Tag> the loops inside which other templates include this one, directly or not */
    public function loopsAround(Template $template): array
    {
        $loops = [];
        $files = [(string) realpath($template->file)];
        for ($next = 0; $next < count($files); ++$next) {
            foreach ($this->places()[$files[$next]] ?? [] as [$includer, $tag]) {
                array_push($loops, ...$includer->nesting->loopsAround($tag));
                $files = [...$files, ...array_diff([(string) realpath($includer->file)], $files)];
            }
        }

        return $loops;
    }

    /** @return array<string, list<array{Template, Tag}>> */
    private function places(): array
    {
        return $this->places ??= $this->findPlaces();
    }

    /** @return array<string, list<array{Template, Tag}>> */
    private function findPlaces(): array
    {
        $places = [];
        $files = array_merge(...array_map(fn(string $path): array => $this->folders->templatesIn($path), $this->folders->paths));
        foreach (array_unique($files) as $file) {
            $template = new Template($file, (string) @file_get_contents($file));
            foreach ($this->includesIn($template) as $included => $tag) {
                $places[$included][] = [$template, $tag];
            }
        }

        return $places;
    }

    /** @return iterable<string, Tag> the tags by the files that they include */
    private function includesIn(Template $template): iterable
    {
        $folders = $this->folders->around($template->file);
        foreach ($template->tags as $tag) {
            $file = $tag->kind === TagKind::Include ? $folders->find($tag->parameter) : null;
            if ($file !== null) {
                yield (string) realpath($file) => $tag;
            }
        }
    }
}
